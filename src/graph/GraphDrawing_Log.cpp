#include "graph/GraphDrawing.h"

#include "graph/AxisFunctions.h"
#include "text/Numbers.h"

namespace linealis {

/// Draws major lines at 1 to 10 of each decade and four minor lines in each gap between them.
void GraphDrawing::PlotLogAxis(const Axis& axis)
{
    constexpr int lastMajor = 10;
    constexpr int minorsPerGap = 4;
    constexpr double minorStep = 0.2;
    const double decadeSize = axis.usable / static_cast<double>(axis.Type());
    for (int decade = 1; decade <= axis.Type(); ++decade) {
        const auto positionOf = [&](double value) {
            return (decade - 1) * decadeSize + axis.origin + log10OnAxis(value) * decadeSize;
        };
        for (int j = 1; j <= lastMajor; ++j) {
            SetMajorStyle(axis);
            DrawGridLine(axis, positionOf(j), GridEnd(axis));
            pdf.SetRGBColor(page.lineColor);
            // The 10 of a decade takes the place of the 1 of the next one.
            if ((decade == 1 || j > 1) && page.showsAxes) {
                DrawLogNumber(axis, j, positionOf(j));
            }
            if (j < lastMajor) {
                pdf.SetRole(axis.roles.minor);
                pdf.SetLineWidth(axis.form.lineThickness);
                for (int k = 1; k <= minorsPerGap; ++k) {
                    DrawGridLine(axis, positionOf(j + k * minorStep), GridEnd(axis));
                }
            }
        }
    }
}

void GraphDrawing::DrawLogNumber(const Axis& axis, double value, double position)
{
    const std::string text = mystring(value);
    const double size = axis.form.textSize;
    pdf.SetRole(axis.roles.numbers);
    pdf.SetFont(page.font, size);
    const double h = TextHeight(size);
    const double w = WidthOf(text, size);
    if (axis.IsX()) {
        ShowBlack(text, position - w / 2.0, bottomMargin - h - 2.0);
    } else {
        ShowBlack(text, leftMargin - w - 5.0, position - h / 2.0);
    }
}

}  // namespace linealis
