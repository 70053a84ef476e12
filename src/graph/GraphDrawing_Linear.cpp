#include "graph/GraphDrawing.h"

#include "graph/AxisFunctions.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>

namespace linealis {

namespace {

/// Subtracts whole major steps from a number of lines until it is not above 0, truncating each time. Returns the
/// result.
std::int64_t LinesPastMajor(std::int64_t lines, double majorStep)
{
    // Until it reaches 0, each step subtracts its number of lines, rounded up. Most rounds can therefore be
    // skipped.
    const std::int64_t linesPerStep = std::max<std::int64_t>(truncated(std::ceil(majorStep)), 1);
    if (lines / 2 > linesPerStep) {
        lines = linesPerStep + lines % linesPerStep;
    }
    while (lines > 0) {
        const std::int64_t next = truncated(static_cast<double>(lines) - majorStep);
        lines = next < lines ? next : 0;  // if the step is too small to change the count
    }
    return lines;
}

/// Returns the count of MajorRhythm before the first line, chosen so that the value 0 is on a major line. Without a
/// major step, the count is so low that about the first million lines are minor.
double StartOfMajorCount(const GraphAxis& axis)
{
    constexpr double never = -999999.0;
    if (axis.majorStep <= 0.0) {
        return never;
    }
    const std::int64_t linesToZero = truncated(0.0 - axis.minimum / axis.step);
    const std::int64_t past = LinesPastMajor(linesToZero, axis.majorStep);
    return past == 0 ? static_cast<double>(truncated(axis.majorStep)) : -static_cast<double>(past);
}

/// Whether the loop over the numbers has passed its end. With a negative spacing, the loop goes backward.
bool IsPast(std::int64_t line, double numLines, double numberSpacing)
{
    const auto number = static_cast<double>(line);
    return numberSpacing < 0.0 ? number < numLines : number > numLines;
}

}  // namespace

MajorRhythm::MajorRhythm(const GraphAxis& axis) : majorStep(axis.majorStep), majorCount(StartOfMajorCount(axis)) {}

bool MajorRhythm::NextLineIsMajor()
{
    majorCount += 1.0;
    const bool isMajor = majorCount > majorStep;
    if (isMajor) {
        majorCount = 1.0;
    }
    return isMajor;
}

void GraphDrawing::PlotLinearAxis(const Axis& axis)
{
    MajorRhythm rhythm(axis.form);
    double position = axis.origin;
    for (double i = 0.0; i < axis.numLines; i += 1.0) {
        if (rhythm.NextLineIsMajor()) {
            SetMajorStyle(axis);
        } else {
            SetMinorStyle(axis);
        }
        DrawGridLine(axis, position, GridEnd(axis));
        position = position + axis.form.lineSpacing;
    }
}

void GraphDrawing::DrawLinearNumbers(const Axis& axis)
{
    const GraphAxis& form = axis.form;
    pdf.SetRole(axis.roles.numbers);
    pdf.SetFont(page.font, form.textSize);
    const double h = TextHeight(form.textSize);
    std::int64_t i = 1;
    while (!IsPast(i, axis.numLines, form.numberSpacing)) {
        const auto lines = static_cast<double>(i - 1);
        const double value = form.minimum + lines * form.step;
        const std::string text = form.isTrigonometric ? mytrigstring(value) : mystring(value);
        const double w = WidthOf(text, form.textSize);
        if (axis.IsX()) {
            pdf.SetTextPos(lines * form.lineSpacing + leftMargin - w / 2.0, bottomMargin + y.zero - h - 2.0);
        } else {
            pdf.SetTextPos(leftMargin + x.zero - w - 5.0, lines * form.lineSpacing + bottomMargin - h / 2.0);
        }
        pdf.Show(text);
        turns.RuntimeBackgroundTask();
        const std::int64_t next = truncated(static_cast<double>(i) + form.numberSpacing);
        if (next == i) {
            break;  // the spacing is too small to reach the next line
        }
        i = next;
    }
}

}  // namespace linealis
