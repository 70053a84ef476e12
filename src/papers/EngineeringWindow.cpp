#include "papers/EngineeringWindow.h"

#include "papers/Ruling.h"
#include "pipeline/Fitting.h"

namespace linealis {

namespace {

const ControlTable& OwnControls()
{
    static const ControlTable table = {
        {Group::Spacing,
         {
             textField("EditHorzSpacing", "Horizontal Grid Spacing:", "5")
                 .Means(Meaning::LinesPerUnit)
                 .LabelledBy("StaticText25"),
             unitLabel("StaticHorzUnit", "per inch", "per cm").Beside(),
             textField("EditLineThicknessHorz", "Line Weight:", ".3")
                 .Means(Meaning::Weight)
                 .LabelledBy("StaticText1")
                 .Beside(),
             textField("EditBlankTop", "Blank Lines on Top:", "3")
                 .Means(Meaning::Count)
                 .LabelledBy("StaticText27")
                 .Beside(),
             textField("EditVertiSpacing", "Vertical Grid Spacing:", "5")
                 .Means(Meaning::LinesPerUnit)
                 .LabelledBy("StaticText26"),
             unitLabel("StaticvertUnit", "per inch", "per cm").Beside(),
             textField("EditLineThicknessVert", "Line Weight:", ".15")
                 .Means(Meaning::Weight)
                 .LabelledBy("StaticText24")
                 .Beside(),
             textField("EditBlankLeft", "Blank Lines on Left:", "5")
                 .Means(Meaning::Count)
                 .LabelledBy("StaticText28")
                 .Beside(),
         }},
        {Group::Lines,
         {
             swatch("LineColorCanvas", "Line Color").LabelledBy("StaticText4"),
             swatch("BackgroundColorCanvas", "Background Color", white).LabelledBy("StaticText30").Beside(),
         }},
        {Group::File, {shiftClickNote("StaticText29")}},
    };
    return table;
}

const SettingsTable& Settings()
{
    using namespace settings;
    static const SettingsTable table = Concatenate({
        Head(),
        {text("EditLineThicknessHorz"), text("EditLineThicknessVert")},
        Margins(),
        {box("CheckBoxViewGraph"), text("EditHorzSpacing"), text("EditVertiSpacing"), text("EditBlankTop"),
         text("EditBlankLeft"), colour("LineColorCanvas"), fileReference(), inverseColour("BackgroundColorCanvas")},
    });
    return table;
}

}  // namespace

EngineeringWindow::EngineeringWindow(Platform& thePlatform)
    : PaperWindow(thePlatform, OwnControls(), Settings(), settingsType)
{}

void EngineeringWindow::ReadOwnValues()
{
    LineThicknessHorz = form.Number("EditLineThicknessHorz");
    LineThicknessVert = form.Number("EditLineThicknessVert");
}

void EngineeringWindow::DoGraph()
{
    MeasureUsableArea();
    const double columnSpace = unitPixels / LinesPerUnit(form, "EditHorzSpacing");
    const double rowSpace = unitPixels / LinesPerUnit(form, "EditVertiSpacing");
    const auto blankTop = static_cast<double>(truncated(form.Number("EditBlankTop")));
    const auto blankLeft = static_cast<double>(truncated(form.Number("EditBlankLeft")));

    const auto numAcross = static_cast<double>(LinesThatFit(usableWidth, columnSpace));
    usableWidth = columnSpace * (numAcross - 1.0);
    const auto numberVertical = static_cast<double>(LinesThatFit(usableHeight, rowSpace));
    usableHeight = rowSpace * (numberVertical - 1.0);

    pdf.SetLineWidth(LineThicknessVert);
    for (double i = blankLeft; i <= numAcross - 1.0; i += 1.0) {
        const double x = i * columnSpace + leftMargin;
        StrokeLine(x, bottomMargin, x, bottomMargin + usableHeight);
        RuntimeBackgroundTask();
    }
    pdf.SetLineWidth(LineThicknessHorz);
    for (double i = 0.0; i <= numberVertical - 1.0 - blankTop; i += 1.0) {
        const double y = i * rowSpace + bottomMargin;
        StrokeLine(leftMargin, y, leftMargin + usableWidth, y);
        RuntimeBackgroundTask();
    }
}

}  // namespace linealis
