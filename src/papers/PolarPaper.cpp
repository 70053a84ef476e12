#include "papers/PolarPaper.h"

#include "pdf/Geometry.h"
#include "pipeline/page/PageWords.h"
#include "text/Numbers.h"

#include <cmath>

namespace linealis {

namespace {

constexpr double roomForLabels = 36.0;  // points; reserved at the right and at the top
constexpr double labelGap = 3.0;        // points; between the outer circle and the labels

double UsableWidth(const PolarPage& page)
{
    return page.frame.UsableWidth() - roomForLabels;
}

double UsableHeight(const PolarPage& page)
{
    return page.frame.UsableHeight() - roomForLabels;
}

/// Returns the radius of the largest circle that leaves room for the labels.
double OuterRadius(const PolarPage& page)
{
    const double usableWidth = UsableWidth(page);
    const double usableHeight = UsableHeight(page);
    return (usableWidth > usableHeight ? usableHeight : usableWidth) / 2.0;
}

/// Draws a page of polar paper. Angles are in radians, counterclockwise from the direction to the right.
class PolarDrawing {
public:
    PolarDrawing(const PolarPage& thePage, MyPDFGenerator& thePdf, Turns& theTurns)
        : page(thePage), pdf(thePdf), turns(theTurns)
    {}

    void DrawCircles();
    void DrawSpokes();
    void DrawMinorSpokes();
    void DrawTitle();

private:
    /// Draws a spoke from `fromRadius` points outside the center to the outer circle.
    void DrawSpoke(double angle, double fromRadius);
    void DrawLabel(const std::string& text, double angle);
    /// Returns the label of a spoke, which is counted from 0.
    std::string LabelOf(double spoke, double angle) const;
    std::string RadiansOf(double spoke) const;

    const PolarPage& page;
    MyPDFGenerator& pdf;
    Turns& turns;
    const double usableWidth = UsableWidth(page);
    const double usableHeight = UsableHeight(page);
    const double outerRadius = OuterRadius(page);
    const double centerX = usableWidth / 2.0 + page.frame.leftMargin;
    const double centerY = usableHeight / 2.0 + page.frame.bottomMargin;
};

void PolarDrawing::DrawCircles()
{
    pdf.SetRole("circle");
    const double circleStep = outerRadius / static_cast<double>(page.numCircles);
    for (std::int64_t i = 1; i <= page.numCircles; ++i) {
        pdf.DrawCircle(centerX, centerY, static_cast<double>(i) * circleStep);
        turns.RuntimeBackgroundTask();
    }
}

void PolarDrawing::DrawSpoke(double angle, double fromRadius)
{
    const double x = std::cos(angle);
    const double y = std::sin(angle);
    pdf.StrokeLine(centerX + x * fromRadius, centerY + y * fromRadius, centerX + x * outerRadius,
                   centerY + y * outerRadius);
}

void PolarDrawing::DrawSpokes()
{
    const double step = (2.0 * pi) / static_cast<double>(page.numSpokes);
    // The first spoke gets a label.
    std::int64_t labelCount = page.labelEvery;
    double a = 0.0;
    for (std::int64_t i = 0; i < page.numSpokes; ++i) {
        pdf.SetRole("spoke.major");
        DrawSpoke(a, 0.0);
        if (labelCount >= page.labelEvery) {
            labelCount = 0;
            if (page.labels != SpokeLabels::none) {
                DrawLabel(LabelOf(static_cast<double>(i), a), a);
            }
        }
        ++labelCount;
        a = a + step;
        turns.RuntimeBackgroundTask();
    }
}

std::string PolarDrawing::LabelOf(double spoke, double angle) const
{
    switch (page.labels) {
    case SpokeLabels::startAt0:
        return myformatstring(spoke, "###");
    case SpokeLabels::startAt1:
        return myformatstring(spoke + 1.0, "###");
    case SpokeLabels::degrees:
        return myformatstring((180.0 / pi) * angle, "###");
    default:
        return RadiansOf(spoke);
    }
}

/// Returns the angle of a spoke as a fraction of pi that is not reduced.
std::string PolarDrawing::RadiansOf(double spoke) const
{
    if (spoke == 0.0) {
        return "0";
    }
    const auto spokes = static_cast<double>(page.numSpokes);
    if (page.numSpokes % 2 != 0) {
        return myformatstring(2.0 * spoke, "#") + " PI/" + myformatstring(spokes, "#");
    }
    const std::string multiple = spoke == 1.0 ? "" : myformatstring(spoke, "#") + " ";
    return multiple + "PI/" + myformatstring(spokes / 2.0, "#");
}

void PolarDrawing::DrawLabel(const std::string& text, double angle)
{
    pdf.SetRole("number");
    pdf.SetRGBColor(page.textColor);
    pdf.DrawRotatedTextFont(text, centerX, centerY, labelGap + outerRadius, (180.0 * angle / pi) - 90.0,
                            page.labelSize, page.font);
    pdf.SetRGBColor(page.lineColor);
}

void PolarDrawing::DrawMinorSpokes()
{
    pdf.SetRole("spoke.minor");
    pdf.SetLineWidth(page.minorLineThickness);
    const double minorRadius =
        (static_cast<double>(page.minorStart) * outerRadius) / static_cast<double>(page.numCircles);
    const double step = (2.0 * pi) / static_cast<double>(page.numMinor);
    double a = 0.0;
    for (std::int64_t i = 1; i <= page.numMinor; ++i) {
        DrawSpoke(a, minorRadius);
        a = a + step;
        turns.RuntimeBackgroundTask();
    }
}

void PolarDrawing::DrawTitle()
{
    pdf.SetRole("title");
    pdf.SetFont(page.font, page.titleSize);
    const double titleWidth = MyPDFGenerator::StringWidth(page.title, page.font, truncated(page.titleSize));
    const double y = TitleZero(page, "title").y - page.titleY;
    const double x =
        page.titleIsCentred ? usableWidth / 2.0 + page.frame.leftMargin - titleWidth / 2.0 : page.titleX;
    pdf.SetTextPos(x, y);
    pdf.SetRGBColor(page.textColor);
    pdf.Show(page.title);
    pdf.SetRGBColor(page.lineColor);
}

}  // namespace

Point TitleZero(const PolarPage& page, Role /*title*/)
{
    return {0.0, page.frame.topMargin + page.frame.bottomMargin + UsableHeight(page)};
}

Message PolarForm::WhyIdle(const Control& control) const
{
    const bool hasLabels =
        RadioButton1.ListIndex() != static_cast<int>(SpokeLabels::none) && EditNumSpokes.Used() > 0.0;
    if (!hasLabels && (&control == &PopupMenuLabelSkip || &control == &EditFontSize)) {
        return Message("there are no labels");
    }
    const bool isOfMinorSpokes = &control == &EditMinorStart || &control == &EditMinorLineThickness;
    return isOfMinorSpokes && EditNumMinorSpokes.Used() == 0.0 ? Message("there are no minor spokes")
                                                               : PaperForm::WhyIdle(control);
}

SettingsTable Settings(PolarForm& form)
{
    using namespace settings;
    return Concatenate({
        Head(form),
        {text(form.EditLineThickness)},
        Margins(form),
        {box(form.CheckBoxViewGraph), color(form.LineColorCanvas), fileReference(),
         inverseColor(form.BackgroundColorCanvas), integer(form.RadioButton1, -1),
         integer(form.PopupMenuLabelSkip, 1), textUnlessEmpty(form.EditMinorLineThickness),
         textUnlessEmpty(form.EditNumCircles), textUnlessEmpty(form.EditNumSpokes),
         textUnlessEmpty(form.EditNumMinorSpokes), textUnlessEmpty(form.EditMinorStart)},
    });
}

PolarPage Read(const PolarForm& form)
{
    PolarPage page;
    page.frame = form.ReadFrame(form.BackgroundColorCanvas, &form.LineColorCanvas);
    page.numCircles = truncated(form.EditNumCircles.Used());
    page.numSpokes = truncated(form.EditNumSpokes.Used());
    page.numMinor = truncated(form.EditNumMinorSpokes.Used());
    page.minorStart = truncated(form.EditMinorStart.Used());
    page.LineThickness = form.EditLineThickness.Used();
    page.minorLineThickness = form.EditMinorLineThickness.Used();
    page.lineColor = form.LineColorCanvas.Shown();
    page.textColor = form.TextColorCanvas.Shown();
    page.labels = static_cast<SpokeLabels>(form.RadioButton1.ListIndex());
    page.labelEvery = truncated(Val(form.PopupMenuLabelSkip.Selected()));
    page.font = form.PopupFont1.ListIndex() + 1;
    page.labelSize = form.EditFontSize.Whole();
    page.title = form.EditTitle.Text();
    page.titleSize = form.EditTitleSize.Used();
    page.titleIsCentred = form.EditTitleX.Text().empty();
    page.titleX = form.EditTitleX.Used() * page.frame.unitPixels;
    page.titleY = form.EditTitleY.Used() * page.frame.unitPixels;
    return page;
}

void Draw(const PolarPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    pdf.SetFont(page.font, 10.0);
    pdf.SetLineWidth(page.LineThickness);
    pdf.SetRGBColor(page.lineColor);
    PolarDrawing drawing(page, pdf, turns);
    drawing.DrawCircles();
    drawing.DrawSpokes();
    drawing.DrawMinorSpokes();
    drawing.DrawTitle();
}

PageWarnings Warn(const PolarForm& form, const PolarPage& page)
{
    PageWarnings warnings;
    const double spokes = form.EditNumSpokes.Used();
    const double minor = form.EditNumMinorSpokes.Used();
    if (spokes >= 1.0 && minor >= 1.0 && std::fmod(minor, spokes) != 0.0) {
        warnings.push_back({"phase", std::string(form.EditNumMinorSpokes.Name()),
                            Message("%1 minor spokes do not meet %2 spokes", minor, spokes)});
    }
    WarnOfInk(form, form.EditLineThickness, OuterRadius(page) / static_cast<double>(page.numCircles), warnings);
    return warnings;
}

Message Describe(const PolarPage& page)
{
    return Message(
        "%1, %2",
        CountWords(static_cast<double>(page.numCircles), {Plural("%1 circle", "%1 circles"), Phrase("no circles")}),
        CountWords(static_cast<double>(page.numSpokes), {Plural("%1 spoke", "%1 spokes"), Phrase("no spokes")}));
}

}  // namespace linealis
