#include "papers/TernaryPaper.h"

#include "pdf/Geometry.h"
#include "pdf/Units.h"
#include "pipeline/page/PageWords.h"
#include "text/Numbers.h"

#include <string>

namespace linealis {

namespace {

constexpr std::int64_t numberSize = 10;  // points
constexpr double fullChannel = 255.0;    // white, although channels end at 1: existing pages depend on it

/// Returns the longest side of a triangle that fits between the margins.
double Side(const PageFrame& frame)
{
    const double usableWidth = frame.UsableWidth();
    const double usableHeight = frame.UsableHeight();
    return usableHeight / cosine30 > usableWidth ? usableWidth : usableHeight / cosine30;
}

/// Draws a page of ternary paper. Divisions count from the left end of the bottom side, or from the bottom upward.
class TernaryDrawing {
public:
    TernaryDrawing(const TernaryPage& thePage, MyPDFGenerator& thePdf, Turns& theTurns)
        : page(thePage), pdf(thePdf), turns(theTurns)
    {}

    void DrawTriangle();
    void DrawMajorLines();
    void DrawMinorLines();
    void DrawNumbersInside();
    void DrawNumbersOnSides();

private:
    void DrawMinorLinesOf(double i);
    void DrawNumberOnHorizontal(double i);
    /// Draws a number near `place`, on a white box that hides the line below it. Angles are in degrees; `offset`
    /// moves the text from `place`.
    void DrawNumberOnSlant(Point place, const std::string& text, double boxAngle, double textAngle, Point offset);
    /// Shows a text at (x, y), rotated by an angle in degrees.
    void ShowTurned(const std::string& text, double angle, double x, double y);

    /// Returns the distance of division `i` from the start of a side, in points.
    double Along(double i) const { return (i * side) / divisions; }
    /// Returns the height of division `i` above the bottom side, in points.
    double Up(double i) const { return ((i * cosine30) * side) / divisions; }
    /// Returns the number at division `k` of an axis.
    std::string NumberAt(double k) const { return Str((k / divisions) * page.axisMaximum); }
    double WidthOf(const std::string& text) const { return MyPDFGenerator::StringWidth(text, font, numberSize); }

    const TernaryPage& page;
    MyPDFGenerator& pdf;
    Turns& turns;
    const std::int64_t font = pdf.FindFont("Courier", "host", 0);
    const double divisions = page.majorDivisions;
    const double usableWidth = page.frame.UsableWidth();
    const double usableHeight = page.frame.UsableHeight();
    const double side = Side(page.frame);
    const double centerX = usableWidth / 2.0 + page.frame.leftMargin;
    const double centerY = usableHeight / 2.0 + page.frame.bottomMargin;
    const double leftX = centerX - side / 2.0;
    const double rightX = centerX + side / 2.0;
    const double bottomY = centerY - (side * cosine30) / 2.0;
    const double topY = centerY + (side * cosine30) / 2.0;
};

void TernaryDrawing::DrawTriangle()
{
    pdf.SetRole("frame");
    pdf.SetFont(font, static_cast<double>(numberSize));
    pdf.SetLineWidth(page.LineThickness);
    pdf.MoveTo(leftX, bottomY);
    pdf.LineTo(centerX, topY);
    pdf.LineTo(rightX, bottomY);
    pdf.LineTo(leftX, bottomY);
    pdf.LineTo(centerX, topY);  // repeats the first side, so that the corner is joined
    pdf.Stroke();
}

/// Draws one line of each direction per division.
void TernaryDrawing::DrawMajorLines()
{
    pdf.SetRole("grid.major");
    for (double i = 1.0; i <= divisions - 1.0; i += 1.0) {
        const double n = divisions - i;
        pdf.StrokeLine(leftX + Along(i), bottomY, leftX + Along(i) / 2.0, bottomY + Up(i));
        pdf.StrokeLine(leftX + Along(i), bottomY, centerX + Along(i) / 2.0, topY - Up(i));
        pdf.StrokeLine(leftX + Along(i) / 2.0, bottomY + Up(i), centerX + Along(n) / 2.0, topY - Up(n));
        turns.RuntimeBackgroundTask();
    }
}

void TernaryDrawing::DrawMinorLines()
{
    pdf.SetRole("grid.minor");
    pdf.SetLineWidth(page.minorLineThickness);
    for (double i = 0.0; i <= divisions - 1.0; i += 1.0) {
        DrawMinorLinesOf(i);
        turns.RuntimeBackgroundTask();
    }
}

/// Draws the lines of all three directions between division `i` and the next one.
void TernaryDrawing::DrawMinorLinesOf(double i)
{
    const double minorSide = (side / divisions) / page.minorDivisions;
    const double n = divisions - i;
    for (double j = 1.0; j <= page.minorDivisions - 1.0; j += 1.0) {
        const double d = j * minorSide;
        const double e = (j * cosine30) * minorSide;
        const double x = leftX + Along(i) + d;
        const double onLeftSide = leftX + Along(i) / 2.0 + d / 2.0;
        const double height = bottomY + Up(i) + e;
        pdf.StrokeLine(x, bottomY, onLeftSide, height);
        pdf.StrokeLine(x, bottomY, centerX + Along(i) / 2.0 + d / 2.0, topY - Up(i) - e);
        pdf.StrokeLine(onLeftSide, height, centerX + Along(n) / 2.0 - d / 2.0, topY - Up(n) + e);
        turns.RuntimeBackgroundTask();
    }
}

void TernaryDrawing::DrawNumbersInside()
{
    pdf.SetRole("number");
    for (double i = 1.0; i <= divisions - 1.0; i += 1.0) {
        DrawNumberOnHorizontal(i);
        const Point rising =
            FindCenterOfTwoPoints(leftX + Along(i), bottomY, leftX + Along(i) / 2.0, bottomY + Up(i));
        DrawNumberOnSlant(rising, NumberAt(divisions - i), 120.0, 120.0, {7.0, -2.0});
        const Point falling =
            FindCenterOfTwoPoints(leftX + Along(i), bottomY, centerX + Along(i) / 2.0, topY - Up(i));
        DrawNumberOnSlant(falling, NumberAt(i), -120.0, 60.0, {-2.0, -5.0});
        turns.RuntimeBackgroundTask();
    }
}

void TernaryDrawing::DrawNumberOnHorizontal(double i)
{
    const std::string text = NumberAt(i);
    const double w = WidthOf(text);
    pdf.SetRGBColor(fullChannel, fullChannel, fullChannel);
    pdf.FillRect(truncated(centerX - w / 2.0), truncated(bottomY + Up(i) - 1.0 - 3.0), truncated(centerX + w / 2.0),
                 truncated(bottomY + Up(i) + 7.0 - 3.0));
    pdf.SetRGBColor(page.lineColor);
    pdf.SetTextPos(centerX - w / 2.0, Up(i) + bottomY - 3.0);
    pdf.Show(text);
}

void TernaryDrawing::DrawNumberOnSlant(Point place, const std::string& text, double boxAngle, double textAngle,
                                       Point offset)
{
    const double w = WidthOf(text);
    pdf.SetRGBColor(fullChannel, fullChannel, fullChannel);
    pdf.FillRectRotated(truncated(place.x - w / 2.0), truncated(place.y - 5.0), truncated(place.x + w / 2.0),
                        truncated(place.y + 7.0), boxAngle);
    pdf.SetRGBColor(page.lineColor);
    ShowTurned(text, textAngle, place.x + offset.x, place.y + offset.y);
}

void TernaryDrawing::ShowTurned(const std::string& text, double angle, double x, double y)
{
    pdf.SetTextPos(0.0, 0.0);
    pdf.ShowRotated(text, angle, x, y);
}

void TernaryDrawing::DrawNumbersOnSides()
{
    if (divisions == 0.0) {
        return;  // neither the numbers nor their positions are defined
    }
    pdf.SetRole("number");
    for (double i = 0.0; i <= divisions; i += 1.0) {
        const double n = divisions - i;
        const std::string upwards = NumberAt(page.flip ? n : i);
        const std::string downwards = NumberAt(page.flip ? i : n);
        pdf.SetTextPos(Along(i) + leftX - WidthOf(upwards) / 2.0, bottomY - 12.0);
        pdf.Show(upwards);
        ShowTurned(downwards, 60.0, Along(i) / 2.0 + leftX - 10.0, Up(i) + bottomY - 4.0);
        ShowTurned(upwards, -60.0, Along(n) / 2.0 + centerX + 10.0, Up(i) + bottomY + 8.0);
        turns.RuntimeBackgroundTask();
    }
}

}  // namespace

TernaryForm::TernaryForm()
{
    PopupScaling.onChange = [this] { PopupScaling_Change(); };
}

void TernaryForm::PopupScaling_Change()
{
    const auto numbers = static_cast<TernaryNumbers>(PopupScaling.ListIndex());
    EditAxisMaximum.CaptionLabel()->SetEnabled(numbers != TernaryNumbers::none);
    EditAxisMaximum.SetEnabled(numbers != TernaryNumbers::none);
    CheckBoxFlip.SetEnabled(numbers == TernaryNumbers::onSides);
}

Message TernaryForm::WhyIdle(const Control& control) const
{
    if (&control == &EditAxisMaximum || &control == &CheckBoxFlip) {
        return control.IsEnabled() ? Message() : Message("Scaling is %1", Message::Listed(PopupScaling.Selected()));
    }
    if (&control == &EditMinorLineThickness && EditMinorDivisions.Used() <= 1.0) {
        return Message("there are no minor divisions");
    }
    return &control == &CheckBoxFrame ? Message("the triangle is always drawn") : PaperForm::WhyIdle(control);
}

SettingsTable Settings(TernaryForm& form)
{
    using namespace settings;
    return Concatenate({
        Head(form),
        {text(form.EditLineThickness)},
        Margins(form),
        {box(form.CheckBoxViewGraph), box(form.CheckBoxFlip), color(form.LineColorCanvas),
         text(form.EditMajorDivisions), text(form.EditMinorDivisions), index(form.PopupScaling),
         text(form.EditAxisMaximum), fileReference(), inverseColor(form.BackgroundColorCanvas)},
    });
}

TernaryPage Read(const TernaryForm& form)
{
    TernaryPage page;
    page.frame = form.ReadFrame(form.BackgroundColorCanvas, &form.LineColorCanvas);
    page.LineThickness = form.EditLineThickness.Used();
    page.minorLineThickness = form.EditMinorLineThickness.Used();
    page.lineColor = form.LineColorCanvas.Shown();
    page.majorDivisions = form.EditMajorDivisions.Used();
    page.minorDivisions = form.EditMinorDivisions.Used();
    page.numbers = static_cast<TernaryNumbers>(form.PopupScaling.ListIndex());
    page.axisMaximum = form.EditAxisMaximum.Used();
    page.flip = form.CheckBoxFlip.Value();
    return page;
}

void Draw(const TernaryPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    TernaryDrawing drawing(page, pdf, turns);
    drawing.DrawTriangle();
    drawing.DrawMajorLines();
    drawing.DrawMinorLines();
    if (page.numbers == TernaryNumbers::inside) {
        drawing.DrawNumbersInside();
    } else if (page.numbers == TernaryNumbers::onSides) {
        drawing.DrawNumbersOnSides();
    }
}

PageWarnings Warn(const TernaryForm& form, const TernaryPage& page)
{
    PageWarnings warnings;
    if (page.majorDivisions >= 1.0) {
        const double apart = Side(page.frame) * cosine30 / page.majorDivisions;
        WarnOfInk(form, form.EditLineThickness, apart, warnings);
        WarnOfInk(form, form.EditMinorLineThickness, apart / page.minorDivisions, warnings);
    }
    return warnings;
}

Message Describe(const TernaryPage& page)
{
    return Message("%1 of %2",
                   CountWords(page.majorDivisions, {Plural("%1 division", "%1 divisions"), Phrase("no divisions")}),
                   page.minorDivisions);
}

}  // namespace linealis
