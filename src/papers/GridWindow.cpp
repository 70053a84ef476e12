#include "papers/GridWindow.h"

namespace linealis {

namespace {

const ControlTable& OwnControls()
{
    static const ControlTable table = {
        SpacingControls(".25", ".25"),
        LineControls(
            true, {swatch("LinesColorCanvas", "Line Color").LabelledBy("StaticText5"),
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
        {text("EditHorzSpacing"), text("EditVertSpacing")},
        Margins(),
        {box("CheckBoxViewGraph"), fileReference(), colour("LinesColorCanvas"), box("CheckVertLines"),
         box("CheckHorzLines"), text("EditHorzWeight"), text("EditVertWeight"),
         inverseColour("BackgroundColorCanvas")},
    });
    return table;
}

}  // namespace

GridWindow::GridWindow(Platform& thePlatform) : CellGridWindow(thePlatform, OwnControls(), Settings(), settingsType)
{
    BindLineControls(form);
}

void GridWindow::DoGraph()
{
    FitCells();
    pdf.SetRGBColor(form.ColorOf("LinesColorCanvas"));
    DrawChosenLines();
}

}  // namespace linealis
