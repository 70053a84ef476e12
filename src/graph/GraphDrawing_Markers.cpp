#include "graph/GraphDrawing.h"

#include "graph/AxisFunctions.h"
#include "text/Numbers.h"

#include <cmath>

namespace linealis {

namespace {

constexpr std::int64_t markerFont = 0;   // used only to compute the width
constexpr std::int64_t markerSize = 10;  // likewise; the text itself is in the current font

/// Returns a field of a line by its number, from 0. Fields are separated by single blanks; a missing field is
/// empty.
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

/// Draws one marker. A line has three fields: the X value, the Y value, and a text, which is centered on the point.
/// Skips a marker that an axis has no place for.
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
