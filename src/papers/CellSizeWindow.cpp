#include "papers/CellSizeWindow.h"

namespace linealis {

void CellSizeWindow::ReadOwnValues()
{
    LineThickness = form.Number("EditLineThickness");
    if (form.Has("EditMinorLineThickness")) {
        minorLineThickness = form.Number("EditMinorLineThickness");
    }
}

void CellSizeWindow::DrawFrame()
{
    if (!form.Value("CheckBoxFrame")) {
        return;
    }
    const double right = leftMargin + usableWidth;
    const double top = bottomMargin + usableHeight;
    StrokeLine(leftMargin, bottomMargin, right, bottomMargin);
    StrokeLine(right, bottomMargin, right, top);
    StrokeLine(right, top, leftMargin, top);
    StrokeLine(leftMargin, top, leftMargin, bottomMargin);
}

ControlTable CellSizeControls(std::vector<Control> weights, std::vector<Control> boxes)
{
    ControlGroup lines{Group::Lines, std::move(weights)};
    lines.controls.insert(lines.controls.end(), boxes.begin(), boxes.end());
    lines.controls.push_back(checkBox("CheckBoxFrame", "Draw Frame", true));
    lines.controls.push_back(swatch("LineColorCanvas", "Line Color"));
    lines.controls.push_back(swatch("BackgroundColorCanvas", "Background Color", white).Beside());
    return {
        {Group::Spacing,
         {textField("EditSize", "Cell Size:", "0.5").Means(Meaning::CellSize).Converted(UnitRule::Length)}},
        lines,
        {Group::File, {shiftClickNote("StaticTextShiftClick")}},
    };
}

SettingsTable CellSizeSettings(const SettingsTable& boxes)
{
    using namespace settings;
    // The minor weight and the frame are not in the file.
    return Concatenate({
        Head(),
        {text("EditLineThickness")},
        Margins(),
        {box("CheckBoxViewGraph")},
        boxes,
        {colour("LineColorCanvas"), fileReference(), sizeText(), inverseColour("BackgroundColorCanvas")},
    });
}

}  // namespace linealis
