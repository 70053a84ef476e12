#include "graph/MainWindow.h"

#include "graph/AxisFunctions.h"
#include "pdf/Numbers.h"

namespace linealis {

void MainWindow::PlotLogAxis(const Axis& axis)
{
    constexpr int lastMajor = 10;
    constexpr int minorsPerGap = 4;
    constexpr double minorStep = 0.2;
    const double decadeSize = Usable(axis) / axis.type;
    for (int decade = 1; decade <= axis.type; ++decade) {
        const auto positionOf = [&](double value) {
            return (decade - 1) * decadeSize + Origin(axis) + log10OnAxis(value) * decadeSize;
        };
        for (int j = 1; j <= lastMajor; ++j) {
            SetMajorStyle(axis);
            DrawGridLine(axis, positionOf(j), GridEnd(axis));
            pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
            // The 10 of a decade stands where the 1 of the next would.
            if ((decade == 1 || j > 1) && form.Value("CheckBoxShowAxes")) {
                DrawLogNumber(axis, j, positionOf(j));
            }
            if (j < lastMajor) {
                pdf.SetLineWidth(axis.lineThickness);
                for (int k = 1; k <= minorsPerGap; ++k) {
                    DrawGridLine(axis, positionOf(j + k * minorStep), GridEnd(axis));
                }
            }
        }
    }
}

void MainWindow::DrawLogNumber(const Axis& axis, double value, double position)
{
    const std::string text = mystring(value);
    const double size = form.Number(axis.controls.textSize);
    pdf.SetFont(fonthandle, size);
    const double h = TextHeight(size);
    const double w = WidthOf(text, size);
    pdf.SetRGBColor(0.0, 0.0, 0.0);
    if (axis.IsX()) {
        pdf.SetTextPos(position - w / 2.0, bottomMargin - h - 2.0);
    } else {
        pdf.SetTextPos(leftMargin - w - 5.0, position - h / 2.0);
    }
    pdf.Show(text);
    pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
}

}  // namespace linealis
