#include "pipeline/form/PlaceOnPage.h"

#include "text/Numbers.h"

#include <algorithm>
#include <cmath>

namespace linealis {

namespace {

/// Rounds a length in the unit of the form.
double RoundedLength(double length, const PaperForm& form, Grain grain)
{
    const double stepsPerUnit = form.InInches() ? (grain == Grain::Coarse ? 16.0 : 100.0)   // of an inch
                                                : (grain == Grain::Coarse ? 20.0 : 100.0);  // of a centimeter
    return std::round(length * stepsPerUnit) / stepsPerUnit;
}

/// Writes a length, in points, to a field. Leaves a field that holds it alone, however it is written. Does nothing
/// if the length is not finite.
void Write(TextField& field, double points, const PaperForm& form, Grain grain)
{
    const double length = RoundedLength(points / form.ReadSetup().unitPixels, form, grain);
    const bool isThere = field.Number() == length && !field.Text().empty();
    if (std::isfinite(length) && !isThere) {
        field.SetText(Str(length));
    }
}

}  // namespace

TextField& MarginOf(PaperForm& form, Side side)
{
    switch (side) {
    case Side::Top:
        return form.EditTopMargin;
    case Side::Bottom:
        return form.EditBottomMargin;
    case Side::Left:
        return form.EditLeftMargin;
    case Side::Right:
        break;
    }
    return form.EditRightMargin;
}

double EndOfMargin(const PageFrame& frame, Side side)
{
    switch (side) {
    case Side::Top:
        return frame.TopEdge();
    case Side::Bottom:
        return frame.BottomEdge();
    case Side::Left:
        return frame.LeftEdge();
    case Side::Right:
        break;
    }
    return frame.RightEdge();
}

void MoveMargin(PaperForm& form, Side side, double place, Grain grain)
{
    const PageSetup setup = form.ReadSetup();
    const bool isUpright = side == Side::Top || side == Side::Bottom;
    const double scale = (isUpright ? form.EditYScale : form.EditXScale).Number() / 100.0;
    if (!(scale > 0.0)) {
        return;
    }
    const auto paper = static_cast<double>(isUpright ? setup.paperHeight : setup.paperWidth);
    const bool isFarSide = side == Side::Top || side == Side::Right;
    const double opposite = side == Side::Top      ? setup.bottomMargin
                            : side == Side::Bottom ? setup.topMargin
                            : side == Side::Left   ? setup.rightMargin
                                                   : setup.leftMargin;
    const double fromEdge = isFarSide ? paper - place / scale : place / scale;
    Write(MarginOf(form, side), std::clamp(fromEdge, 0.0, std::max(paper - opposite, 0.0)), form, grain);
}

TitleControls ControlsOfTitle(const PaperForm& form, Role title)
{
    TitleControls found;
    for (Control* const control : form.Controls()) {
        if (control->Declared().governs != RoleSet{title}) {
            continue;
        }
        if (control->Kind() == ControlKind::Check) {
            found.placesItself = static_cast<CheckBox*>(control);
        } else if (control->Declared().direction == Direction::Horizontal) {
            found.x = static_cast<TextField*>(control);
        } else if (control->Declared().direction == Direction::Vertical) {
            found.y = static_cast<TextField*>(control);
        }
    }
    return found.x != nullptr && found.y != nullptr ? found : TitleControls();
}

void MoveTitle(PaperForm& form, const PrintedField& title, const Point& place, Grain grain)
{
    const TitleControls controls = ControlsOfTitle(form, title.role);
    if (controls.x == nullptr) {
        return;
    }
    if (controls.placesItself != nullptr && controls.placesItself->Value()) {
        controls.placesItself->Click(false);
    }
    Write(*controls.x, place.x - title.zero.x, form, grain);
    Write(*controls.y, title.zero.y - place.y, form, grain);
}

}  // namespace linealis
