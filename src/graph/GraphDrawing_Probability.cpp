#include "graph/GraphDrawing.h"

#include "graph/AxisFunctions.h"
#include "text/Numbers.h"

#include <array>

namespace linealis {

namespace {

// The percentages that have a line and a number.
constexpr std::array<double, 19> percentages = {0.1,  0.2,  0.5,  1.0,  2.0,  3.0,  5.0,  10.0, 20.0, 30.0,
                                                40.0, 50.0, 60.0, 70.0, 80.0, 90.0, 95.0, 99.0, 99.9};

}  // namespace

// Draws the lines and numbers of the Y axis. Sets neither the line width nor the color: both use the current ones.
void GraphDrawing::PlotProbabilityYAxis()
{
    pdf.SetFont(page.font, page.y.textSize);
    for (const double percentage : percentages) {
        const double height = ShareOfProbabilityScale(percentage) * y.usable + bottomMargin;
        pdf.SetRole("grid.y.probability");
        pdf.StrokeLine(leftMargin, height, leftMargin + x.usable, height);
        const std::string text = mystring(percentage);
        pdf.SetRole(y.roles.numbers);
        pdf.SetTextPos(leftMargin - WidthOf(text, page.y.textSize) - 5.0, height - 2.0);
        pdf.Show(text);
        turns.RuntimeBackgroundTask();
    }
}

}  // namespace linealis
