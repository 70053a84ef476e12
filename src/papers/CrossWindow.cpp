#include "papers/CrossWindow.h"

namespace linealis {

namespace {

const ControlTable& OwnControls()
{
    static const ControlTable table = {
        SpacingControls(
            ".5", ".5",
            {
                // Lengths too, but a change of units leaves their numbers alone.
                textField("EditCrossHeight", "Cross Height:", ".15")
                    .Means(Meaning::Length)
                    .LabelledBy("StaticText25"),
                textField("EditCrossWidth", "Cross Width:", ".15")
                    .Means(Meaning::Length)
                    .LabelledBy("StaticText26"),
                textField("EditCrossWeight", "Cross Weight:", "1").Means(Meaning::Weight).LabelledBy("StaticText3"),
            }),
        LineControls(
            false,
            {swatch("LineColorCanvas", "Cross Color").LabelledBy("StaticText4"),
             swatch("LinesColorCanvas", "Line Color").LabelledBy("StaticText5").Beside(),
             swatch("BackgroundColorCanvas", "Background Color", white).LabelledBy("StaticText28").Beside()}),
        {Group::File, {shiftClickNote("StaticText27")}},
    };
    return table;
}

const SettingsTable& Settings()
{
    using namespace settings;
    static const SettingsTable table = Concatenate({
        Head(),
        {text("EditCrossWeight"), text("EditHorzSpacing"), text("EditVertSpacing"), text("EditCrossHeight"),
         text("EditCrossWidth")},
        Margins(),
        {box("CheckBoxViewGraph"), colour("LineColorCanvas"), fileReference(), colour("LinesColorCanvas"),
         box("CheckVertLines"), box("CheckHorzLines"), text("EditHorzWeight"), text("EditVertWeight"),
         inverseColour("BackgroundColorCanvas")},
    });
    return table;
}

}  // namespace

CrossWindow::CrossWindow(Platform& thePlatform)
    : CellGridWindow(thePlatform, OwnControls(), Settings(), settingsType)
{
    BindLineControls(form);
}

void CrossWindow::ReadOwnValues()
{
    CellGridWindow::ReadOwnValues();
    crossWeight = form.Number("EditCrossWeight");
    crossHeight = form.Number("EditCrossHeight") * unitPixels;
    crossWidth = form.Number("EditCrossWidth") * unitPixels;
}

void CrossWindow::DoGraph()
{
    FitCells(crossWidth, crossHeight);
    pdf.SetRGBColor(form.ColorOf("LinesColorCanvas"));
    DrawChosenLines();
    pdf.SetLineWidth(crossWeight);
    pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
    ForEachCrossing([this](double x, double y) {
        StrokeLine(x - crossWidth / 2.0, y, x + crossWidth / 2.0, y);
        StrokeLine(x, y - crossHeight / 2.0, x, y + crossHeight / 2.0);
    });
}

}  // namespace linealis
