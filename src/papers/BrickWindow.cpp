#include "papers/BrickWindow.h"

#include "pdf/Numbers.h"

namespace linealis {

namespace {

const ControlTable& OwnControls()
{
    static const ControlTable table = {
        {Group::Spacing,
         {
             textField("EditVertSpacing", "Vertical Spacing:", ".25")
                 .Means(Meaning::Spacing)
                 .LabelledBy("StaticText1")
                 .Converted(UnitRule::Length),
             textField("EditHorzWeight", "Line Weight:", ".5")
                 .Means(Meaning::Weight)
                 .LabelledBy("StaticTextVLines")
                 .Beside(),
             textField("EditHorzSpacing", "Horizontal Spacing:", ".75")
                 .Means(Meaning::Spacing)
                 .LabelledBy("StaticText24")
                 .Converted(UnitRule::Length),
             textField("EditVertWeight", "Line Weight:", ".5")
                 .Means(Meaning::Weight)
                 .LabelledBy("StaticTextHLines")
                 .Beside(),
         }},
        {Group::Lines,
         {
             swatch("LinesColorCanvas", "Line Color").LabelledBy("StaticText5"),
             swatch("BackgroundColorCanvas", "Background Color", white).LabelledBy("StaticText28").Beside(),
         }},
        {Group::File, {shiftClickNote("StaticText27")}},
    };
    return table;
}

const SettingsTable& Settings()
{
    using namespace settings;
    // The grid's fields; the two check boxes that this kind does not have are always on.
    static const SettingsTable table = Concatenate({
        Head(),
        {text("EditHorzSpacing"), text("EditVertSpacing")},
        Margins(),
        {box("CheckBoxViewGraph"), fileReference(), colour("LinesColorCanvas"), fixed("1"), fixed("1"),
         text("EditHorzWeight"), text("EditVertWeight"), inverseColour("BackgroundColorCanvas")},
    });
    return table;
}

}  // namespace

BrickWindow::BrickWindow(Platform& thePlatform)
    : CellGridWindow(thePlatform, OwnControls(), Settings(), settingsType)
{}

void BrickWindow::DoGraph()
{
    FitCells();
    pdf.SetRGBColor(form.ColorOf("LinesColorCanvas"));
    DrawHorizontalLines();
    pdf.SetLineWidth(vertLineWeight);
    for (double row = 0.0; row < rows && columns >= 0.0; row += 1.0) {  // no course stands on the top line
        for (double column = 0.0; column <= columns; column += 1.0) {
            DrawJoint(row, column);
            RuntimeBackgroundTask();
        }
        RuntimeBackgroundTask();
    }
}

void BrickWindow::DrawJoint(double row, double column)
{
    const bool oddCourse = truncated(row) % 2 != 0;
    if (!oddCourse && column >= columns) {
        return;
    }
    const double x = oddCourse ? ColumnX(column) : ColumnX(column) + horzSpacing / 2.0;
    StrokeLine(x, RowY(row), x, RowY(row + 1.0));
}

}  // namespace linealis
