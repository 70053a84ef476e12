#include "core/PageDrag.h"

#include "pipeline/form/FormCheck.h"
#include "pipeline/form/FormLayout.h"

#include <algorithm>
#include <array>
#include <utility>

namespace linealis::web {

namespace {

constexpr std::array<std::pair<std::string_view, Side>, 4> namesOfSides = {
    {{"Top", Side::Top}, {"Bottom", Side::Bottom}, {"Left", Side::Left}, {"Right", Side::Right}}};

}  // namespace

PageDrag::PageDrag(PaperWindow& theWindow, std::string_view handle, const Point& theStart)
    : window(theWindow), before(theWindow.form.State()), start(theStart)
{
    const PaperPage page = window.ReadPage();
    frame = page.frame;
    for (const auto& [name, named] : namesOfSides) {
        if (name == handle) {
            side = named;
        }
    }
    for (const PrintedField& field : page.printed) {
        if (field.role == handle && ControlsOfTitle(window.form, field.role).x != nullptr) {
            title = field;
        }
    }
}

void PageDrag::Move(const Point& distance, Grain grain, bool marginsAreLinked)
{
    window.form.Restore(before);  // a linked margin must not limit the one that is dragged
    if (side) {
        const bool isUpright = *side == Side::Top || *side == Side::Bottom;
        MoveMargin(window.form, *side, EndOfMargin(frame, *side) + (isUpright ? distance.y : distance.x), grain);
        if (marginsAreLinked) {
            LinkMargins(window.form, MarginOf(window.form, *side));
        }
    } else if (title && frame.xScale > 0.0 && frame.yScale > 0.0) {
        MoveTitle(window.form, *title, {start.x + distance.x / frame.xScale, start.y + distance.y / frame.yScale},
                  grain);
    }
}

const Control& PageDrag::Moved() const
{
    return side ? MarginOf(window.form, *side) : *window.form.Find(title->control);
}

std::vector<Role> MovableTitles(const PaperForm& form)
{
    std::vector<Role> titles;
    for (const PrintedField& field : PrintedFields(form)) {
        if (ControlsOfTitle(form, field.role).x != nullptr) {
            titles.push_back(field.role);
        }
    }
    return titles;
}

}  // namespace linealis::web
