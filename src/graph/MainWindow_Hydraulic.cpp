#include "graph/MainWindow.h"

#include "pdf/Numbers.h"
#include "pipeline/Fitting.h"

#include <cmath>

namespace linealis {

bool MainWindow::HydraulicAxisIsValid(const Axis& axis)
{
    const std::string name = axis.IsX() ? "X" : "Y";
    if (axis.hydraulicExponent <= 1.0) {
        platform.MsgBox("The Hydraulic Exponent for the " + name + " Axis must be larger than 1");
        return false;
    }
    if (form.Number(axis.controls.minimum) < 0.0) {
        platform.MsgBox("The minimum value for the " + name + " Axis cannot be negative");
        return false;
    }
    const bool hasRange = form.Number(axis.controls.maximum) > form.Number(axis.controls.minimum);
    return hasRange && form.Number(axis.controls.step) > 0.0;
}

void MainWindow::PlotHydraulicAxis(Axis& axis)
{
    if (!HydraulicAxisIsValid(axis)) {
        return;
    }
    const double exponent = axis.hydraulicExponent;
    const double minimum = form.Number(axis.controls.minimum);
    const double maximum = form.Number(axis.controls.maximum);
    axis.hydraulicOffset = std::pow(minimum, exponent);
    axis.hydraulicScaling = Usable(axis) / (std::pow(maximum, exponent) - std::pow(minimum, exponent));
    const double size = form.Number(axis.controls.textSize);
    pdf.SetFont(fonthandle, size);

    const Axis& across = Across(axis);
    const double end = across.type > linear ? Origin(across) + Usable(across) : GridEnd(axis);
    auto labelCount = static_cast<double>(truncated(axis.spacing));  // the first line gets a number
    double majorCount = StartOfMajorCount(axis);
    for (double v = minimum; v <= maximum; v = v + axis.step) {
        const double position =
            Origin(axis) + (std::pow(v, exponent) - axis.hydraulicOffset) * axis.hydraulicScaling;
        if (NextLineIsMajor(axis, majorCount)) {
            SetMajorStyle(axis);
        } else {
            SetMinorStyle(axis);
        }
        DrawGridLine(axis, position, end);
        labelCount += 1.0;
        if (labelCount >= axis.spacing) {
            DrawHydraulicNumber(axis, v, position, size);
            labelCount = 0.0;
        }
        if (!Advances(v, axis.step)) {
            break;
        }
    }
}

void MainWindow::DrawHydraulicNumber(const Axis& axis, double value, double position, double size)
{
    const std::string text = mystring(value);
    const double w = WidthOf(text, size);
    pdf.SetRGBColor(0.0, 0.0, 0.0);
    if (axis.IsX()) {
        pdf.SetTextPos(position - w / 2.0, bottomMargin - 1.2 * TextHeight(size) - 2.0);
    } else {
        pdf.SetTextPos(leftMargin - w - 5.0, position - 2.0);
    }
    pdf.Show(text);
    pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
}

}  // namespace linealis
