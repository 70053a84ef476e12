#include "graph/GraphDrawing.h"

#include "graph/AxisFunctions.h"
#include "pipeline/document/MarkerFile.h"
#include "text/Numbers.h"

#include <cmath>

namespace linealis {

namespace {

constexpr std::int64_t markerFont = 0;   // used only to compute the width
constexpr std::int64_t markerSize = 10;  // likewise; the text itself is in the current font

}  // namespace

/// Draws the lines of the marker file, in the font and the color that are current.
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

/// Draws one marker, its text centered on the point. Skips a marker that an axis has no place for.
void GraphDrawing::PlotMarker(std::string_view line)
{
    const MarkerFields fields(line);
    const double px = MarkerPosition(x, Val(fields.x));
    const double py = MarkerPosition(y, Val(fields.y));
    if (!std::isfinite(px) || !std::isfinite(py)) {
        return;
    }
    const double w = MyPDFGenerator::StringWidth(fields.text, markerFont, markerSize);
    pdf.SetTextPos(leftMargin + px - w / 2.0, bottomMargin + py - 4.0);
    pdf.Show(fields.text);
}

/// Returns the distance of a value from the edge of the graph in points. Not finite if the axis has no place for
/// the value.
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
