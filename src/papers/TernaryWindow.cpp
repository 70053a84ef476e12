#include "papers/TernaryWindow.h"

#include "pdf/Numbers.h"

#include <cmath>

namespace linealis {

namespace {

const double cosine30 = std::sqrt(0.75);
constexpr std::int64_t numberSize = 10;  // points
constexpr double fullChannel = 255.0;    // for white, although a channel goes to 1: existing pages have it so

enum Scaling : int { none = 0, axis = 1, center = 2 };

const ControlTable& OwnControls()
{
    static const ControlTable table = {
        {Group::Spacing,
         {
             textField("EditMajorDivisions", "Major Divisions:", "10").Means(Meaning::Quantity),
             textField("EditMinorDivisions", "Minor Divisions:", "5").Means(Meaning::Quantity).Beside(),
             popup("PopupScaling", "Scaling:", {"None", "Axis", "Center"}),
             textField("EditAxisMaximum", "Axis Maximum:", "100")
                 .LabelledBy("StaticTextAxisMaximum")
                 .Disabled()
                 .Beside(),
             checkBox("CheckBoxFlip", "Flip", false).Disabled().Beside(),
         }},
        {Group::Lines,
         {
             textField("EditLineThickness", "Major Weight:", "1").Means(Meaning::Weight),
             textField("EditMinorLineThickness", "Minor Line Weight:", ".05").Means(Meaning::Weight).Beside(),
             checkBox("CheckBoxFrame", "Draw Frame", true),  // nothing reads it: the triangle is always drawn
             swatch("LineColorCanvas", "Line Color"),
             swatch("BackgroundColorCanvas", "Background Color", white).Beside(),
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
        {box("CheckBoxViewGraph"), box("CheckBoxFlip"), colour("LineColorCanvas"), text("EditMajorDivisions"),
         text("EditMinorDivisions"), popup("PopupScaling"), text("EditAxisMaximum"), fileReference(),
         inverseColour("BackgroundColorCanvas")},
    });
    return table;
}

}  // namespace

TernaryWindow::TernaryWindow(Platform& thePlatform)
    : PaperWindow(thePlatform, OwnControls(), Settings(), settingsType)
{
    form.OnChange("PopupScaling", [this] { PopupScaling_Change(); });
}

void TernaryWindow::PopupScaling_Change()
{
    const int scaling = form.ListIndex("PopupScaling");
    form.SetEnabled("StaticTextAxisMaximum", scaling != Scaling::none);
    form.SetEnabled("EditAxisMaximum", scaling != Scaling::none);
    form.SetEnabled("CheckBoxFlip", scaling == axis);
}

void TernaryWindow::ReadOwnValues()
{
    LineThickness = form.Number("EditLineThickness");
    minorLineThickness = form.Number("EditMinorLineThickness");
    majorDivisions = truncated(form.Number("EditMajorDivisions"));
    minorDivisions = truncated(form.Number("EditMinorDivisions"));
    axisMaximum = form.Number("EditAxisMaximum");
}

double TernaryWindow::Along(double i) const
{
    return (i * side) / static_cast<double>(majorDivisions);
}

double TernaryWindow::Up(double i) const
{
    return ((i * cosine30) * side) / static_cast<double>(majorDivisions);
}

std::string TernaryWindow::NumberAt(double k) const
{
    return Str((k / static_cast<double>(majorDivisions)) * axisMaximum);
}

double TernaryWindow::WidthOf(const std::string& text) const
{
    return MyPDFGenerator::StringWidth(text, fonthandle, numberSize);
}

void TernaryWindow::DoGraph()
{
    fonthandle = pdf.FindFont("Courier", "host", 0);
    pdf.SetFont(fonthandle, static_cast<double>(numberSize));
    MeasureTriangle();
    DrawTriangle();
    DrawMajorLines();
    DrawMinorLines();
    if (form.ListIndex("PopupScaling") == center) {
        DrawNumbersInside();
    } else if (form.ListIndex("PopupScaling") == axis) {
        DrawNumbersOnSides();
    }
}

void TernaryWindow::MeasureTriangle()
{
    MeasureUsableArea();
    side = usableHeight / cosine30 > usableWidth ? usableWidth : usableHeight / cosine30;
    centerX = usableWidth / 2.0 + leftMargin;
    const double centerY = usableHeight / 2.0 + bottomMargin;
    leftX = centerX - side / 2.0;
    rightX = centerX + side / 2.0;
    bottomY = centerY - (side * cosine30) / 2.0;
    topY = centerY + (side * cosine30) / 2.0;
}

void TernaryWindow::DrawTriangle()
{
    pdf.SetLineWidth(LineThickness);
    pdf.MoveTo(leftX, bottomY);
    pdf.LineTo(centerX, topY);
    pdf.LineTo(rightX, bottomY);
    pdf.LineTo(leftX, bottomY);
    pdf.LineTo(centerX, topY);  // once more over the first side, so that the corner closes
    pdf.Stroke();
}

void TernaryWindow::DrawMajorLines()
{
    const auto divisions = static_cast<double>(majorDivisions);
    for (double i = 1.0; i <= divisions - 1.0; i += 1.0) {
        const double n = divisions - i;
        StrokeLine(leftX + Along(i), bottomY, leftX + Along(i) / 2.0, bottomY + Up(i));
        StrokeLine(leftX + Along(i), bottomY, centerX + Along(i) / 2.0, topY - Up(i));
        StrokeLine(leftX + Along(i) / 2.0, bottomY + Up(i), centerX + Along(n) / 2.0, topY - Up(n));
        RuntimeBackgroundTask();
    }
}

void TernaryWindow::DrawMinorLines()
{
    pdf.SetLineWidth(minorLineThickness);
    for (double i = 0.0; i <= static_cast<double>(majorDivisions) - 1.0; i += 1.0) {
        DrawMinorLinesOf(i);
        RuntimeBackgroundTask();
    }
}

void TernaryWindow::DrawMinorLinesOf(double i)
{
    const auto divisions = static_cast<double>(minorDivisions);
    const double minorSide = (side / static_cast<double>(majorDivisions)) / divisions;
    const double n = static_cast<double>(majorDivisions) - i;
    for (double j = 1.0; j <= divisions - 1.0; j += 1.0) {
        const double d = j * minorSide;
        const double e = (j * cosine30) * minorSide;
        const double x = leftX + Along(i) + d;
        const double onLeftSide = leftX + Along(i) / 2.0 + d / 2.0;
        const double height = bottomY + Up(i) + e;
        StrokeLine(x, bottomY, onLeftSide, height);
        StrokeLine(x, bottomY, centerX + Along(i) / 2.0 + d / 2.0, topY - Up(i) - e);
        StrokeLine(onLeftSide, height, centerX + Along(n) / 2.0 - d / 2.0, topY - Up(n) + e);
        RuntimeBackgroundTask();
    }
}

void TernaryWindow::DrawNumbersInside()
{
    const auto divisions = static_cast<double>(majorDivisions);
    for (double i = 1.0; i <= divisions - 1.0; i += 1.0) {
        DrawNumberOnHorizontal(i);
        const Point rising =
            FindCenterOfTwoPoints(leftX + Along(i), bottomY, leftX + Along(i) / 2.0, bottomY + Up(i));
        DrawNumberOnSlant(rising, NumberAt(divisions - i), 120.0, 120.0, {7.0, -2.0});
        const Point falling =
            FindCenterOfTwoPoints(leftX + Along(i), bottomY, centerX + Along(i) / 2.0, topY - Up(i));
        DrawNumberOnSlant(falling, NumberAt(i), -120.0, 60.0, {-2.0, -5.0});
        RuntimeBackgroundTask();
    }
}

void TernaryWindow::DrawNumberOnHorizontal(double i)
{
    const std::string text = NumberAt(i);
    const double w = WidthOf(text);
    pdf.SetRGBColor(fullChannel, fullChannel, fullChannel);
    pdf.FillRect(truncated(centerX - w / 2.0), truncated(bottomY + Up(i) - 1.0 - 3.0), truncated(centerX + w / 2.0),
                 truncated(bottomY + Up(i) + 7.0 - 3.0));
    pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
    pdf.SetTextPos(centerX - w / 2.0, Up(i) + bottomY - 3.0);
    pdf.Show(text);
}

void TernaryWindow::DrawNumberOnSlant(Point place, const std::string& text, double boxAngle, double textAngle,
                                      Point offset)
{
    const double w = WidthOf(text);
    pdf.SetRGBColor(fullChannel, fullChannel, fullChannel);
    pdf.FillRectRotated(truncated(place.x - w / 2.0), truncated(place.y - 5.0), truncated(place.x + w / 2.0),
                        truncated(place.y + 7.0), boxAngle);
    pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
    pdf.SetTextPos(0.0, 0.0);
    pdf.ShowRotated(text, textAngle, place.x + offset.x, place.y + offset.y);
}

void TernaryWindow::DrawNumbersOnSides()
{
    const auto divisions = static_cast<double>(majorDivisions);
    const bool flip = form.Value("CheckBoxFlip");
    for (double i = 0.0; i <= divisions; i += 1.0) {
        const double n = divisions - i;
        const std::string upwards = NumberAt(flip ? n : i);
        const std::string downwards = NumberAt(flip ? i : n);
        pdf.SetTextPos(Along(i) + leftX - WidthOf(upwards) / 2.0, bottomY - 12.0);
        pdf.Show(upwards);
        pdf.SetTextPos(0.0, 0.0);
        pdf.ShowRotated(downwards, 60.0, Along(i) / 2.0 + leftX - 10.0, Up(i) + bottomY - 4.0);
        pdf.SetTextPos(0.0, 0.0);
        pdf.ShowRotated(upwards, -60.0, Along(n) / 2.0 + centerX + 10.0, Up(i) + bottomY + 8.0);
        RuntimeBackgroundTask();
    }
}

}  // namespace linealis
