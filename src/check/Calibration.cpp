#include "check/Calibration.h"

#include "pdf/MyPDFGenerator.h"
#include "pdf/Units.h"

#include <algorithm>
#include <array>
#include <string>

namespace linealis {

namespace {

constexpr int sixteenths = 16;
constexpr double pointsPerSixteenth = pointsPerInch / sixteenths;

// The fonts, by the number in their name on the page.
constexpr std::int64_t helvetica = 5;
constexpr std::int64_t helveticaBold = 6;
constexpr std::int64_t labelSize = 8;

constexpr double scaleWidth = 0.5;  // the line widths of the scales, in points
constexpr double tickWidth = 0.25;

// The place where the lines of the scales cross, in points from the left and upper edges of the paper.
constexpr std::int64_t crossFromLeft = 140;
constexpr std::int64_t crossFromTop = 280;
/// The distance from the crossing to both zeros, in points. It keeps the ticks of each scale clear of the other
/// scale.
constexpr std::int64_t crossToZero = 30;
constexpr std::int64_t textFromTop = 90;
constexpr std::int64_t lineOfText = 20;

/// One of the two scales. Maps a length along the scale and a distance beside it, both in points, to a point of the
/// page. Positive distances are on the side of the millimeters: above the horizontal scale, to the left of the
/// vertical one.
struct Scale {
    Point zero;
    bool isDown;

    Point At(double along, double beside) const
    {
        return isDown ? Point{zero.x - beside, zero.y - along} : Point{zero.x + along, zero.y + beside};
    }
};

void StrokeLine(MyPDFGenerator& pdf, Point from, Point to)
{
    pdf.StrokeLine(from.x, from.y, to.x, to.y);
}

/// Draws a label that is centered on a place of the scale.
void DrawLabel(MyPDFGenerator& pdf, const Scale& scale, double along, double beside, const std::string& text)
{
    constexpr double digitWidth = 0.556 * labelSize;  // in Helvetica
    constexpr double digitHeight = 0.72 * labelSize;
    const Point middle = scale.At(along, beside);
    pdf.SetFont(helvetica, labelSize);
    pdf.SetTextPos(middle.x - digitWidth * static_cast<double>(text.size()) / 2.0, middle.y - digitHeight / 2.0);
    pdf.Show(text);
}

/// Draws a tick per millimeter, longer at 5 and 10 mm, and labels the centimeters.
void DrawMillimeters(MyPDFGenerator& pdf, Turns& turns, const Scale& scale)
{
    for (int k = 0; k <= calibrationMillimeters; ++k) {
        const double along = k * pointsPerMm;
        const double length = k % 10 == 0 ? 14.0 : k % 5 == 0 ? 10.0 : 6.0;
        StrokeLine(pdf, scale.At(along, 0.0), scale.At(along, length));
        if (k % 10 == 0) {
            DrawLabel(pdf, scale, along, 21.0, std::to_string(k / 10));
        }
        turns.RuntimeBackgroundTask();
    }
}

/// Draws a tick per sixteenth of an inch, longer at the larger fractions, and labels the inches.
void DrawInches(MyPDFGenerator& pdf, Turns& turns, const Scale& scale)
{
    for (int k = 0; k <= calibrationInches * sixteenths; ++k) {
        const double along = k * pointsPerSixteenth;
        const double length = k % 16 == 0 ? 14.0 : k % 8 == 0 ? 11.0 : k % 4 == 0 ? 8.5 : k % 2 == 0 ? 6.0 : 4.0;
        StrokeLine(pdf, scale.At(along, 0.0), scale.At(along, -length));
        if (k % sixteenths == 0) {
            DrawLabel(pdf, scale, along, -21.0, std::to_string(k / sixteenths));
        }
        turns.RuntimeBackgroundTask();
    }
}

void DrawScale(MyPDFGenerator& pdf, Turns& turns, const Scale& scale)
{
    pdf.SetLineWidth(scaleWidth);
    // The line starts before the zero, so that the two scales cross.
    StrokeLine(pdf, scale.At(-2.0 * crossToZero, 0.0), scale.At(calibrationInches * pointsPerInch, 0.0));
    pdf.SetLineWidth(tickWidth);
    DrawMillimeters(pdf, turns, scale);
    DrawInches(pdf, turns, scale);
    constexpr double behindEnd = calibrationInches * pointsPerInch + 17.0;
    DrawLabel(pdf, scale, behindEnd, 21.0, "cm");
    DrawLabel(pdf, scale, behindEnd, -21.0, "in");
}

void DrawText(MyPDFGenerator& pdf, const CalibrationPaper& paper)
{
    const std::array lines = {
        "Print this sheet at 100 %, not fitted to the paper.",
        "Measure from 0 to 10 cm across and down; enter the two lengths in the program.",
        "If 100 mm measure 99 mm, lengths are multiplied by 100 / 99 from then on.",
    };
    auto y = static_cast<double>(paper.height - textFromTop);
    const auto show = [&](const std::string& text, std::int64_t font, double size) {
        pdf.SetFont(font, size);
        pdf.SetTextPos(crossFromLeft - crossToZero, y);
        pdf.Show(text);
        y -= lineOfText;
    };
    show("Calibration of a printer: " + std::string(paper.title), helveticaBold, 14.0);
    for (const char* const line : lines) {
        show(line, helvetica, 11.0);
    }
}

}  // namespace

const std::vector<CalibrationPaper>& CalibrationPapers()
{
    static const std::vector<CalibrationPaper> papers = {
        {"a4", "A4", MyPDFGenerator::A4Width, MyPDFGenerator::A4Height},
        {"letter", "Letter", MyPDFGenerator::letterWidth, MyPDFGenerator::letterHeight}};
    return papers;
}

const CalibrationPaper* FindCalibrationPaper(std::string_view name)
{
    const auto& papers = CalibrationPapers();
    const auto found = std::find_if(papers.begin(), papers.end(),
                                    [&](const CalibrationPaper& paper) { return paper.name == name; });
    return found == papers.end() ? nullptr : &*found;
}

CalibrationZeros ZerosOf(const CalibrationPaper& paper)
{
    const auto y = static_cast<double>(paper.height - crossFromTop);
    return {{crossFromLeft + crossToZero, y}, {crossFromLeft, y - crossToZero}};
}

PaperPage CalibrationPage(const CalibrationPaper& paper)
{
    PageFrame frame;
    frame.paperWidth = paper.width;
    frame.paperHeight = paper.height;
    frame.lineColor = Color{};
    return {frame, [paper](MyPDFGenerator& pdf, Turns& turns, const PageQuestions& /*ask*/) {
                const CalibrationZeros zeros = ZerosOf(paper);
                DrawScale(pdf, turns, {zeros.across, false});
                DrawScale(pdf, turns, {zeros.down, true});
                DrawText(pdf, paper);
            }};
}

}  // namespace linealis
