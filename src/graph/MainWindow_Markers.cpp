#include "graph/MainWindow.h"

#include "graph/AxisFunctions.h"
#include "graph/MarkerFile.h"
#include "graph/ProbabilityScale.h"
#include "pdf/Numbers.h"

#include <cmath>

namespace linealis {

namespace {

constexpr FileType textFileType{"text", ""};
constexpr std::int64_t markerFont = 0;   // for its width only
constexpr std::int64_t markerSize = 10;  // likewise; the text takes the font in force

/// The field of that number, from 0, of a line whose fields are separated by single blanks. Empty if it is missing.
std::string_view FieldOf(std::string_view line, int number)
{
    for (; number > 0; --number) {
        const std::size_t blank = line.find(' ');
        if (blank == std::string_view::npos) {
            return {};
        }
        line.remove_prefix(blank + 1);
    }
    return line.substr(0, line.find(' '));
}

}  // namespace

void MainWindow::PlotMarkers()
{
    MarkerFile file(platform.GetOpenFolderItem(textFileType));
    std::string line;
    while (file.NextLine(line)) {
        PlotMarker(line);
        RuntimeBackgroundTask();
    }
}

void MainWindow::PlotMarker(std::string_view line)
{
    const double px = MarkerPosition(xAxis, Val(FieldOf(line, 0)));
    const double py = MarkerPosition(yAxis, Val(FieldOf(line, 1)));
    if (!std::isfinite(px) || !std::isfinite(py)) {
        return;
    }
    const std::string_view text = FieldOf(line, 2);
    const double w = MyPDFGenerator::StringWidth(text, markerFont, markerSize);
    pdf.SetTextPos(leftMargin + px - w / 2.0, bottomMargin + py - 4.0);
    pdf.Show(text);
}

/// Points from the graph's edge. Not finite where the axis has no place for the value.
double MainWindow::MarkerPosition(const Axis& axis, double value) const
{
    if (axis.IsLog()) {
        const double size = Usable(axis) / axis.type;
        const auto decade = static_cast<double>(truncated(log10OnAxis(value)));
        return decade * size + log10OnAxis(value / std::pow(10.0, decade)) * size;
    }
    if (axis.type == hydraulic) {
        const double exponent = form.Number(axis.controls.hydraulicExponent);
        const double offset = std::pow(form.Number(axis.controls.minimum), exponent);
        const double scale = Usable(axis) / (std::pow(form.Number(axis.controls.maximum), exponent) - offset);
        return (std::pow(value, exponent) - offset) * scale;
    }
    if (axis.type == probability) {
        return ShareOfProbabilityScale(value) * Usable(axis);
    }
    return value * axis.lineSpacing / axis.step + axis.zero;
}

}  // namespace linealis
