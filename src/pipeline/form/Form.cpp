#include "pipeline/form/Form.h"

#include <algorithm>
#include <utility>

namespace linealis {

std::vector<Form::Row> Form::Rows(Group group) const
{
    const auto isCaption = [this](const Control* control) {
        return std::any_of(controls.begin(), controls.end(),
                           [&](const Control* field) { return field->CaptionLabel() == control; });
    };
    std::vector<Row> rows;
    for (Control* const control : controls) {
        if (control->InGroup() != group || isCaption(control)) {
            continue;
        }
        const bool sameRow = control->Declared().beside || control->Declared().captionAbove;
        if (rows.empty() || !sameRow) {
            rows.emplace_back();
        }
        rows.back().push_back(control);
    }
    return rows;
}

Control* Form::Find(std::string_view name) const
{
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [&](const Control* control) { return control->Name() == name; });
    return found == controls.end() ? nullptr : *found;
}

std::vector<ControlState> Form::State() const
{
    std::vector<ControlState> state;
    for (const Control* const control : controls) {
        // Assigned, not constructed as a copy: in libstdc++ 12, a copy of a variant that runs out of memory
        // destroys what it has not made.
        ControlState copy;
        copy = control->State();
        state.push_back(std::move(copy));
    }
    return state;
}

bool Form::IsAsOpened(const Control& control) const
{
    return opening.at(PlaceOf(control)).content == control.State().content;
}

std::size_t Form::PlaceOf(const Control& control) const
{
    return static_cast<std::size_t>(std::find(controls.begin(), controls.end(), &control) - controls.begin());
}

void Form::Restore(const std::vector<ControlState>& earlier)
{
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (controls[i]->State() != earlier.at(i)) {
            controls[i]->Restore(earlier[i]);
        }
    }
}

void Form::Add(Control& control)
{
    const auto place = std::upper_bound(controls.begin(), controls.end(), control.InGroup(),
                                        [](Group group, const Control* other) { return group < other->InGroup(); });
    controls.insert(place, &control);
}

void Form::EnableFollowersOf(const CheckBox& box) const
{
    for (Control* const control : controls) {
        if (control->Declared().enabledBy == &box) {
            control->SetEnabled(box.Value());
            if (Label* const label = control->CaptionLabel()) {
                label->SetEnabled(box.Value());
            }
        }
    }
}

}  // namespace linealis
