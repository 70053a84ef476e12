#include "graph/GraphDrawing.h"

#include "graph/AxisFunctions.h"
#include "text/Numbers.h"

#include <cmath>

namespace linealis {

namespace {

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

void GraphDrawing::PlotMarkers()
{
    const auto nextLine = ask.askForMarkers();
    pdf.SetRole("marker");
    std::string line;
    while (nextLine(line)) {
        PlotMarker(line);
        turns.RuntimeBackgroundTask();
    }
}

void GraphDrawing::PlotMarker(std::string_view line)
{
    const double px = MarkerPosition(x, Val(FieldOf(line, 0)));
    const double py = MarkerPosition(y, Val(FieldOf(line, 1)));
    if (!std::isfinite(px) || !std::isfinite(py)) {
        return;
    }
    const std::string_view text = FieldOf(line, 2);
    const double w = MyPDFGenerator::StringWidth(text, markerFont, markerSize);
    pdf.SetTextPos(leftMargin + px - w / 2.0, bottomMargin + py - 4.0);
    pdf.Show(text);
}

/// Points from the graph's edge. Not finite where the axis has no place for the value.
double GraphDrawing::MarkerPosition(const Axis& axis, double value)
{
    if (IsLog(axis.Type())) {
        const double size = axis.usable / static_cast<double>(axis.Type());
        const auto decade = static_cast<double>(truncated(log10OnAxis(value)));
        return decade * size + log10OnAxis(value / std::pow(10.0, decade)) * size;
    }
    if (axis.Type() == hydraulic) {
        return HydraulicScale(axis.form, axis.usable).PositionOf(value);
    }
    if (axis.Type() == probability) {
        return ShareOfProbabilityScale(value) * axis.usable;
    }
    return value * axis.form.lineSpacing / axis.form.step + axis.zero;
}

}  // namespace linealis
