#include "papers/PolarWindow.h"

#include "pdf/Geometry.h"
#include "pdf/Numbers.h"

#include <algorithm>
#include <cmath>

namespace linealis {

namespace {

constexpr double roomForLabels = 36.0;  // points, taken off at the right and at the top
constexpr double labelGap = 3.0;        // points between the outer circle and its labels
constexpr std::int32_t styleOfFirstButton = -1;
constexpr std::int32_t lastStyle = 3;

enum LabelStyle : int { none = 0, degrees = 1, radians = 2, startAt0 = 3, startAt1 = 4 };

const ControlTable& OwnControls()
{
    static const ControlTable table = {
        {Group::Spacing,
         {
             textField("EditNumCircles", "Circles:", "8").Means(Meaning::CircleCount),
             textField("EditNumSpokes", "Spokes:", "12").Means(Meaning::Quantity).Beside(),
             textField("EditNumMinorSpokes", "Minor:", "48").Means(Meaning::Quantity).Beside(),
             textField("EditMinorStart", "Minor Start:", "2").Means(Meaning::Count).Beside(),
         }},
        {Group::Lines,
         {
             textField("EditLineThickness", "Line Weight:", ".45").Means(Meaning::Weight),
             textField("EditMinorLineThickness", "Minor Line Weight:", ".1").Means(Meaning::Weight).Beside(),
             swatch("LineColorCanvas", "Line Color"),
             swatch("BackgroundColorCanvas", "Background Color", white).Beside(),
         }},
        {Group::Text,
         {
             radioGroup("RadioButton1", "Labels:", {"None", "Degrees", "Radians", "Start At 0", "Start At 1"},
                        degrees),
             popup("PopupMenuLabelSkip",
                   "Print Every:", {"1",  "2",  "3",  "4",  "5",  "6",  "7",  "8",  "9",  "10",
                                    "11", "12", "13", "14", "15", "16", "17", "18", "19", "20"}),
             popup("PopupFont1", "Font:", FontNames(), 4),
             textField("EditFontSize", "Size:", "10").Means(Meaning::FontSize).Beside(),
             swatch("TextColorCanvas", "Text Color"),
             textField("EditTitle", "Title:", "Sample Polar Graph Paper").Means(Meaning::Prose),
             textField("EditTitleX", "X:", "2.6").Means(Meaning::TitlePlace).Beside(),
             textField("EditTitleY", "Y:", "1").Means(Meaning::Length).Beside(),
             textField("EditTitleSize", "Size:", "20").Means(Meaning::FontSize).Beside(),
         }},
        {Group::File, {shiftClickNote("StaticTextShiftClick")}},
    };
    return table;
}

const SettingsTable& Settings()
{
    using namespace settings;
    static const SettingsTable table = Concatenate({
        Head(),
        {text("EditLineThickness")},
        Margins(),
        {box("CheckBoxViewGraph"), colour("LineColorCanvas"), fileReference(),
         inverseColour("BackgroundColorCanvas"),
         integer(
             "RadioButton1",
             [](const PaperForm& form) { return form.ListIndex("RadioButton1") + styleOfFirstButton; },
             [](PaperForm& form, std::int32_t style) {
                 form.SetListIndex("RadioButton1",
                                   std::clamp(style, styleOfFirstButton, lastStyle) - styleOfFirstButton);
             }),
         integer(
             "PopupMenuLabelSkip", [](const PaperForm& form) { return form.ListIndex("PopupMenuLabelSkip") + 1; },
             [](PaperForm& form, std::int32_t skip) {
                 form.SetListIndex("PopupMenuLabelSkip", std::int64_t{skip} - 1);
             }),
         textUnlessEmpty("EditMinorLineThickness"), textUnlessEmpty("EditNumCircles"),
         textUnlessEmpty("EditNumSpokes"), textUnlessEmpty("EditNumMinorSpokes"),
         textUnlessEmpty("EditMinorStart")},
    });
    return table;
}

}  // namespace

PolarWindow::PolarWindow(Platform& thePlatform) : PaperWindow(thePlatform, OwnControls(), Settings(), settingsType)
{}

void PolarWindow::ReadOwnValues()
{
    LineThickness = form.Number("EditLineThickness");
    minorLineThickness = form.Number("EditMinorLineThickness");
}

std::int64_t PolarWindow::WholeNumber(std::string_view field) const
{
    return truncated(form.Number(field));
}

void PolarWindow::DoGraph()
{
    fonthandle = form.ListIndex("PopupFont1") + 1;
    pdf.SetFont(fonthandle, 10.0);
    Measure();
    pdf.SetLineWidth(LineThickness);
    pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
    DrawCircles();
    DrawSpokes();
    DrawMinorSpokes();
    DrawTitle();
}

void PolarWindow::Measure()
{
    MeasureUsableArea();
    usableWidth -= roomForLabels;
    usableHeight -= roomForLabels;
    numCircles = std::max<std::int64_t>(WholeNumber("EditNumCircles"), 1);
    outerRadius = (usableWidth > usableHeight ? usableHeight : usableWidth) / 2.0;
    centerX = usableWidth / 2.0 + leftMargin;
    centerY = usableHeight / 2.0 + bottomMargin;
}

void PolarWindow::DrawCircles()
{
    const double circleStep = outerRadius / static_cast<double>(numCircles);
    for (std::int64_t i = 1; i <= numCircles; ++i) {
        pdf.DrawCircle(centerX, centerY, static_cast<double>(i) * circleStep);
        RuntimeBackgroundTask();
    }
}

void PolarWindow::DrawSpoke(double angle, double fromRadius)
{
    const double x = std::cos(angle);
    const double y = std::sin(angle);
    StrokeLine(centerX + x * fromRadius, centerY + y * fromRadius, centerX + x * outerRadius,
               centerY + y * outerRadius);
}

void PolarWindow::DrawSpokes()
{
    const std::int64_t numSpokes = WholeNumber("EditNumSpokes");
    const double step = (2.0 * pi) / static_cast<double>(numSpokes);
    const std::int64_t labelEvery = truncated(Val(form.SelectedItem("PopupMenuLabelSkip")));
    std::int64_t labelCount = labelEvery;
    double a = 0.0;
    for (std::int64_t i = 0; i < numSpokes; ++i) {
        DrawSpoke(a, 0.0);
        if (labelCount >= labelEvery) {
            labelCount = 0;
            if (form.ListIndex("RadioButton1") != LabelStyle::none) {
                DrawLabel(LabelOf(static_cast<double>(i), a, numSpokes), a);
            }
        }
        ++labelCount;
        a = a + step;
        RuntimeBackgroundTask();
    }
}

std::string PolarWindow::LabelOf(double spoke, double angle, std::int64_t numSpokes) const
{
    switch (form.ListIndex("RadioButton1")) {
    case startAt0:
        return myformatstring(spoke, "###");
    case startAt1:
        return myformatstring(spoke + 1.0, "###");
    case degrees:
        return myformatstring((180.0 / pi) * angle, "###");
    default:
        break;
    }
    if (spoke == 0.0) {
        return "0";
    }
    // Radians, as a fraction of pi that is not reduced.
    const auto spokes = static_cast<double>(numSpokes);
    if (numSpokes % 2 != 0) {
        return myformatstring(2.0 * spoke, "#") + " PI/" + myformatstring(spokes, "#");
    }
    const std::string multiple = spoke == 1.0 ? "" : myformatstring(spoke, "#") + " ";
    return multiple + "PI/" + myformatstring(spokes / 2.0, "#");
}

void PolarWindow::DrawLabel(const std::string& text, double angle)
{
    pdf.SetRGBColor(form.ColorOf("TextColorCanvas"));
    pdf.DrawRotatedTextFont(text, centerX, centerY, labelGap + outerRadius, (180.0 * angle / pi) - 90.0,
                            WholeNumber("EditFontSize"), fonthandle);
    pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
}

void PolarWindow::DrawMinorSpokes()
{
    pdf.SetLineWidth(minorLineThickness);
    const std::int64_t numMinor = WholeNumber("EditNumMinorSpokes");
    const auto minorStart = static_cast<double>(WholeNumber("EditMinorStart"));
    const double minorRadius = (minorStart * outerRadius) / static_cast<double>(numCircles);
    const double step = (2.0 * pi) / static_cast<double>(numMinor);
    double a = 0.0;
    for (std::int64_t i = 1; i <= numMinor; ++i) {
        DrawSpoke(a, minorRadius);
        a = a + step;
        RuntimeBackgroundTask();
    }
}

void PolarWindow::DrawTitle()
{
    const std::string& title = form.Text("EditTitle");
    const double titleSize = form.Number("EditTitleSize");
    pdf.SetFont(fonthandle, titleSize);
    const double titleWidth = MyPDFGenerator::StringWidth(title, fonthandle, truncated(titleSize));
    const double y = (topMargin + bottomMargin + usableHeight) - form.Number("EditTitleY") * unitPixels;
    const double x = form.Text("EditTitleX").empty() ? usableWidth / 2.0 + leftMargin - titleWidth / 2.0
                                                     : form.Number("EditTitleX") * unitPixels;
    pdf.SetTextPos(x, y);
    pdf.SetRGBColor(form.ColorOf("TextColorCanvas"));
    pdf.Show(title);
    pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
}

}  // namespace linealis
