#include "pipeline/PaperForm.h"

#include "pdf/Numbers.h"

#include <algorithm>
#include <utility>

namespace linealis {

PaperForm::PaperForm(const ControlTable& table)
{
    for (const ControlGroup& group : table) {
        for (const Control& control : group.controls) {
            if (!control.labelName.empty() && !Has(control.labelName)) {
                Control caption = label(control.labelName, control.caption);
                caption.enabled = control.enabled;
                Add(caption, group.group);
            }
            Add(control, group.group);
        }
    }
}

void PaperForm::Add(const Control& control, Group group)
{
    indices[control.name] = states.size();
    State state;
    state.control = control;
    state.group = group;
    state.caption = control.caption;
    state.text = control.text;
    state.listIndex = control.listIndex;
    state.value = control.value;
    state.color = control.color;
    state.enabled = control.enabled;
    states.push_back(std::move(state));
}

double PaperForm::Number(std::string_view name) const
{
    return Val(Text(name));
}

std::string_view PaperForm::SelectedItem(std::string_view name) const
{
    const State& state = (*this)[name];
    return state.control.items.at(static_cast<std::size_t>(state.listIndex));
}

void PaperForm::Changed(std::string_view name, bool runHandler)
{
    if (observer) {
        observer(name);
    }
    const auto handler = handlers.find(name);
    if (runHandler && handler != handlers.end()) {
        handler->second();
    }
}

void PaperForm::SetText(std::string_view name, std::string text)
{
    Find(name).text = std::move(text);
    Changed(name, true);
}

void PaperForm::SetListIndex(std::string_view name, std::int64_t index)
{
    State& state = Find(name);
    const auto last = static_cast<std::int64_t>(state.control.items.size()) - 1;
    state.listIndex = static_cast<int>(std::clamp<std::int64_t>(index, 0, last));
    Changed(name, state.control.kind == ControlKind::Popup);
}

void PaperForm::SetValue(std::string_view name, bool value)
{
    Find(name).value = value;
    Changed(name, false);
}

void PaperForm::SetColor(std::string_view name, Color color)
{
    Find(name).color = color;
    Changed(name, false);
}

void PaperForm::SetEnabled(std::string_view name, bool enabled)
{
    Find(name).enabled = enabled;
    Changed(name, false);
}

void PaperForm::SetCaption(std::string_view name, std::string_view caption)
{
    Find(name).caption = caption;
    Changed(name, false);
}

void PaperForm::Type(std::string_view name, std::string text)
{
    focusedControl = name;
    SetText(name, std::move(text));
    focusedControl.clear();
}

void PaperForm::Click(std::string_view name, bool value)
{
    Find(name).value = value;
    Changed(name, true);
}

void PaperForm::OnChange(std::string_view name, Handler handler)
{
    handlers[name] = std::move(handler);
}

}  // namespace linealis
