#include "graph/EasyGraphWizard.h"

#include "pdf/Units.h"
#include "text/Numbers.h"

namespace linealis {

double EasyGraphWizard::ConvertToUnits(double linesPerPoint) const
{
    return graph.InInches() ? pointsPerInch * linesPerPoint : linesPerPoint / cmPerInch * pointsPerInch;
}

void EasyGraphWizard::CalcValues()
{
    const PageSetup setup = graph.ReadSetup();
    Fill({form.EditMinX, form.EditMaxX, form.EditMinorXSpacing, form.EditMajorXSpacing}, graph.X(),
         setup.UsableWidth());
    Fill({form.EditMinY, form.EditMaxY, form.EditMinorYSpacing, form.EditMajorYSpacing}, graph.Y(),
         setup.UsableHeight());
    // Replaces both line densities, so that each axis holds a whole number of steps.
    graph.RecalcLinesPerInch();
}

void EasyGraphWizard::Fill(const Range& range, const AxisFields& fields, double room)
{
    const double minimum = range.minimum.Number();
    const double maximum = range.maximum.Number();
    const double minorSpacing = range.minorSpacing.Used();
    const double lines = (maximum - minimum) / minorSpacing;
    const std::string major = mystring(range.majorSpacing.Number() / minorSpacing);
    fields.grid.lineSpacing.SetText(mystring(ConvertToUnits(lines / room * 1.0)));
    fields.axis.minimum.SetText(mystring(minimum));
    fields.axis.step.SetText(range.minorSpacing.Text());
    fields.grid.major.SetText(major);
    fields.axis.spacing.SetText(major);  // a number on each major line
    fields.axis.maximum.SetText(mystring(maximum));
}

}  // namespace linealis
