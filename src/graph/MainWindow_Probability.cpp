#include "graph/MainWindow.h"

#include "graph/AxisFunctions.h"
#include "graph/ProbabilityScale.h"
#include "pdf/Numbers.h"

#include <array>

namespace linealis {

namespace {

constexpr std::array<double, 19> percentages = {0.1,  0.2,  0.5,  1.0,  2.0,  3.0,  5.0,  10.0, 20.0, 30.0,
                                                40.0, 50.0, 60.0, 70.0, 80.0, 90.0, 95.0, 99.0, 99.9};

}  // namespace

// Sets neither line width nor colour: lines and numbers take what is in force.
void MainWindow::PlotProbabilityYAxis()
{
    const double size = form.Number(yControls.textSize);
    pdf.SetFont(fonthandle, size);
    for (const double percentage : percentages) {
        const double y = ShareOfProbabilityScale(percentage) * usableHeight + bottomMargin;
        StrokeLine(leftMargin, y, leftMargin + usableWidth, y);
        const std::string text = mystring(percentage);
        pdf.SetTextPos(leftMargin - WidthOf(text, size) - 5.0, y - 2.0);
        pdf.Show(text);
        RuntimeBackgroundTask();
    }
}

}  // namespace linealis
