#include "graph/GraphDrawing.h"

#include "pipeline/page/Fitting.h"
#include "text/Numbers.h"

#include <cmath>

namespace linealis {

HydraulicScale::HydraulicScale(const GraphAxis& axis, double usable)
    : exponent(axis.hydraulicExponent), offset(std::pow(axis.minimum, exponent)),
      scaling(usable / (std::pow(axis.maximum, exponent) - offset))
{}

double HydraulicScale::PositionOf(double value) const
{
    return (std::pow(value, exponent) - offset) * scaling;
}

/// Whether the axis can be drawn. Tells the user why not if the exponent or the minimum is wrong; other problems
/// have no message.
bool GraphDrawing::HydraulicAxisIsValid(const Axis& axis) const
{
    const std::string_view name = axis.IsX() ? "X" : "Y";
    if (axis.form.hydraulicExponent <= 1.0) {
        ask.say(Message("The Hydraulic Exponent for the %1 Axis must be larger than 1", name));
        return false;
    }
    if (axis.form.minimum < 0.0) {
        ask.say(Message("The minimum value for the %1 Axis cannot be negative", name));
        return false;
    }
    return axis.form.maximum > axis.form.minimum && axis.form.stepsForward;
}

void GraphDrawing::PlotHydraulicAxis(const Axis& axis)
{
    if (!HydraulicAxisIsValid(axis)) {
        return;
    }
    const GraphAxis& form = axis.form;
    const HydraulicScale scale(form, axis.usable);
    const Axis& across = Across(axis);
    // The lines end with the grid of a linear axis across; otherwise they fill the room.
    const double end = across.Type() > linear ? across.origin + across.usable : GridEnd(axis);
    pdf.SetFont(page.font, form.textSize);
    auto labelCount = static_cast<double>(truncated(form.numberSpacing));  // so that the first line gets a number
    MajorRhythm rhythm(form);
    for (double v = form.minimum; v <= form.maximum; v = v + form.step) {
        const double position = axis.origin + scale.PositionOf(v);
        if (rhythm.NextLineIsMajor()) {
            SetMajorStyle(axis);
        } else {
            SetMinorStyle(axis);
        }
        DrawGridLine(axis, position, end);
        labelCount += 1.0;
        if (labelCount >= form.numberSpacing) {
            DrawHydraulicNumber(axis, v, position);
            labelCount = 0.0;
        }
        if (!Advances(v, form.step)) {
            break;
        }
    }
}

void GraphDrawing::DrawHydraulicNumber(const Axis& axis, double value, double position)
{
    pdf.SetRole(axis.roles.numbers);
    const std::string text = mystring(value);
    const double size = axis.form.textSize;
    const double w = WidthOf(text, size);
    if (axis.IsX()) {
        ShowBlack(text, position - w / 2.0, bottomMargin - 1.2 * TextHeight(size) - 2.0);
    } else {
        ShowBlack(text, leftMargin - w - 5.0, position - 2.0);
    }
}

}  // namespace linealis
