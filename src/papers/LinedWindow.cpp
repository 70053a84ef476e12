#include "papers/LinedWindow.h"

#include "papers/Ruling.h"
#include "pipeline/Fitting.h"

#include <algorithm>

namespace linealis {

namespace {

const ControlTable& OwnControls()
{
    static const ControlTable table = {
        {Group::Spacing,
         {
             textField("EditHorzSpacing", "Line Spacing:", "5")
                 .Means(Meaning::LinesPerUnit)
                 .LabelledBy("StaticText25"),
             unitLabel("StaticHorzUnit", "per inch", "per cm").Beside(),
             textField("EditBlankTop", "Blank Lines on Top:", "3").Means(Meaning::Count).LabelledBy("StaticText27"),
             textField("EditLineThicknessHorz", "Line Weight:", ".2")
                 .Means(Meaning::Weight)
                 .LabelledBy("StaticText1")
                 .Beside(),
         }},
        {Group::Lines,
         {
             checkBox("CheckBoxDrawVertical", "Draw Vertical Line", true),
             textField("EditBlankLeft", "Offset From left:", "1")
                 .Means(Meaning::WholeUnits)
                 .LabelledBy("StaticText28"),
             unitLabel("StaticvertUnit", "per inch", "per cm").Beside(),
             textField("EditLineThicknessVert", "Line Weight:", ".5")
                 .Means(Meaning::Weight)
                 .LabelledBy("StaticText24")
                 .Beside(),
             swatch("LineColorCanvas", "Line Color").LabelledBy("StaticText4"),
             swatch("BackgroundColorCanvas", "Background Color", white).LabelledBy("StaticText29").Beside(),
         }},
        {Group::File, {shiftClickNote("StaticText26")}},
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
        {box("CheckBoxViewGraph"), text("EditHorzSpacing"), text("EditBlankTop"), text("EditBlankLeft"),
         colour("LineColorCanvas"), fileReference(), inverseColour("BackgroundColorCanvas"),
         boolean("CheckBoxDrawVertical")},
    });
    return table;
}

}  // namespace

LinedWindow::LinedWindow(Platform& thePlatform) : PaperWindow(thePlatform, OwnControls(), Settings(), settingsType)
{}

void LinedWindow::ReadOwnValues()
{
    LineThicknessHorz = form.Number("EditLineThicknessHorz");
    LineThicknessVert = form.Number("EditLineThicknessVert");
}

void LinedWindow::DoGraph()
{
    MeasureUsableArea();
    const double lineSpace = unitPixels / LinesPerUnit(form, "EditHorzSpacing");
    const auto blankTop = static_cast<double>(truncated(form.Number("EditBlankTop")));
    // A whole number of units, and of points as well.
    const auto units = static_cast<double>(std::max<std::int64_t>(truncated(form.Number("EditBlankLeft")), 0));
    const auto offset = static_cast<double>(truncated(units * unitPixels));

    const auto numberVertical = static_cast<double>(LinesThatFit(usableHeight, lineSpace));
    usableHeight = lineSpace * (numberVertical - 1.0);

    // Each weight belongs to the other row of the form: existing forms and settings files have it so.
    pdf.SetLineWidth(LineThicknessVert);
    for (double i = 0.0; i <= numberVertical - 1.0 - blankTop; i += 1.0) {
        const double y = i * lineSpace + bottomMargin;
        StrokeLine(leftMargin, y, leftMargin + usableWidth, y);
        RuntimeBackgroundTask();
    }
    if (form.Value("CheckBoxDrawVertical")) {
        pdf.SetLineWidth(LineThicknessHorz);
        StrokeLine(offset + leftMargin, bottomMargin, offset + leftMargin, bottomMargin + usableHeight);
    }
}

}  // namespace linealis
