#include "graph/MainWindow.h"

#include "graph/AxisFunctions.h"
#include "pdf/Numbers.h"

#include <algorithm>
#include <cmath>

namespace linealis {

namespace {

/// What is left of a count of lines when whole major steps are taken off until it is not above 0, each time
/// truncated.
std::int64_t LinesPastMajor(std::int64_t lines, double majorStep)
{
    // A step takes off as many lines as it has, rounded up, until it reaches 0: most rounds can be left out.
    const std::int64_t linesPerStep = std::max<std::int64_t>(truncated(std::ceil(majorStep)), 1);
    if (lines / 2 > linesPerStep) {
        lines = linesPerStep + lines % linesPerStep;
    }
    while (lines > 0) {
        const std::int64_t next = truncated(static_cast<double>(lines) - majorStep);
        lines = next < lines ? next : 0;  // a step too small to count
    }
    return lines;
}

}  // namespace

/// Major lines fall on whole multiples of the major step from the value zero, wherever the axis starts.
double MainWindow::StartOfMajorCount(const Axis& axis) const
{
    constexpr double never = -999999.0;
    if (axis.majorStep <= 0.0) {
        return never;
    }
    const std::int64_t linesToZero = truncated(0.0 - form.Number(axis.controls.minimum) / axis.step);
    const std::int64_t past = LinesPastMajor(linesToZero, axis.majorStep);
    return past == 0 ? static_cast<double>(truncated(axis.majorStep)) : -static_cast<double>(past);
}

bool MainWindow::NextLineIsMajor(const Axis& axis, double& majorCount) const
{
    majorCount += 1.0;
    const bool isMajor = majorCount > axis.majorStep;
    if (isMajor) {
        majorCount = 1.0;
    }
    return isMajor;
}

void MainWindow::PlotLinearAxis(const Axis& axis)
{
    double majorCount = StartOfMajorCount(axis);
    double position = Origin(axis);
    for (double i = 0.0; i < axis.numLines; i += 1.0) {
        if (NextLineIsMajor(axis, majorCount)) {
            SetMajorStyle(axis);
        } else {
            SetMinorStyle(axis);
        }
        DrawGridLine(axis, position, GridEnd(axis));
        position = position + axis.lineSpacing;
    }
}

std::string MainWindow::LinearNumber(const Axis& axis, double value) const
{
    const bool trigonometric = axis.IsX() && form.ListIndex(xControls.numberType) == 1;
    return trigonometric ? mytrigstring(value) : mystring(value);
}

void MainWindow::DrawLinearNumbers(const Axis& axis)
{
    const double size = form.Number(axis.controls.textSize);
    pdf.SetFont(fonthandle, size);
    const double h = TextHeight(size);
    const double minimum = form.Number(axis.controls.minimum);
    std::int64_t i = 1;
    const auto isPast = [&](std::int64_t line) {
        const auto number = static_cast<double>(line);
        return axis.spacing < 0.0 ? number < axis.numLines : number > axis.numLines;
    };
    while (!isPast(i)) {
        const auto lines = static_cast<double>(i - 1);
        const std::string text = LinearNumber(axis, minimum + lines * axis.step);
        const double w = WidthOf(text, size);
        if (axis.IsX()) {
            pdf.SetTextPos(lines * axis.lineSpacing + leftMargin - w / 2.0, bottomMargin + yAxis.zero - h - 2.0);
        } else {
            pdf.SetTextPos(leftMargin + xAxis.zero - w - 5.0, lines * axis.lineSpacing + bottomMargin - h / 2.0);
        }
        pdf.Show(text);
        RuntimeBackgroundTask();
        const std::int64_t next = truncated(static_cast<double>(i) + axis.spacing);
        if (next == i) {
            break;  // a spacing too small to reach the next line
        }
        i = next;
    }
}

}  // namespace linealis
