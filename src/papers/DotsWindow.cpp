#include "papers/DotsWindow.h"

namespace linealis {

namespace {

constexpr double roundCap = 1.0;

const ControlTable& OwnControls()
{
    static const ControlTable table = {
        SpacingControls(
            ".5", ".5",
            {
                textField("EditDotWeight", "Dot Weight:", "1").Means(Meaning::Weight).LabelledBy("StaticText3"),
            }),
        LineControls(
            false,
            {swatch("LineColorCanvas", "Dot Color").LabelledBy("StaticText4"),
             swatch("LinesColorCanvas", "Line Color").LabelledBy("StaticText5").Beside(),
             swatch("BackgroundColorCanvas", "Background Color", white).LabelledBy("StaticText26").Beside()}),
        {Group::File, {shiftClickNote("StaticText25")}},
    };
    return table;
}

const SettingsTable& Settings()
{
    using namespace settings;
    static const SettingsTable table = Concatenate({
        Head(),
        {text("EditDotWeight"), text("EditHorzSpacing"), text("EditVertSpacing")},
        Margins(),
        {box("CheckBoxViewGraph"), colour("LineColorCanvas"), fileReference(), colour("LinesColorCanvas"),
         box("CheckVertLines"), box("CheckHorzLines"), text("EditHorzWeight"), text("EditVertWeight"),
         inverseColour("BackgroundColorCanvas")},
    });
    return table;
}

}  // namespace

DotsWindow::DotsWindow(Platform& thePlatform) : CellGridWindow(thePlatform, OwnControls(), Settings(), settingsType)
{
    BindLineControls(form);
}

void DotsWindow::ReadOwnValues()
{
    CellGridWindow::ReadOwnValues();
    dotWeight = form.Number("EditDotWeight");
}

void DotsWindow::DoGraph()
{
    FitCells();
    pdf.SetRGBColor(form.ColorOf("LinesColorCanvas"));
    DrawChosenLines();
    // A line of no length with a round cap prints as a disc as wide as the line.
    pdf.SetLineWidth(dotWeight);
    pdf.SetLineCap(roundCap);
    pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
    ForEachCrossing([this](double x, double y) { StrokeLine(x, y, x, y); });
}

}  // namespace linealis
