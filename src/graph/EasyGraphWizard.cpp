#include "graph/EasyGraphWizard.h"

#include "graph/Axis.h"
#include "graph/MainWindow.h"
#include "pdf/Numbers.h"

namespace linealis {

namespace {

constexpr double pointsPerInch = 72.0;
constexpr double cmPerInch = 2.54;

struct WizardFields {
    std::string_view minimum;
    std::string_view maximum;
    std::string_view minorSpacing;
    std::string_view majorSpacing;
};

constexpr WizardFields xFields{"EditMinX", "EditMaxX", "EditMinorXSpacing", "EditMajorXSpacing"};
constexpr WizardFields yFields{"EditMinY", "EditMaxY", "EditMinorYSpacing", "EditMajorYSpacing"};

const ControlTable& Controls()
{
    static const ControlTable table = {
        {Group::Spacing,
         {
             textField(xFields.minimum, "Min X:", "-20"),
             textField(xFields.maximum, "Max X:", "20"),
             textField(xFields.minorSpacing, "Minor X Spacing:", "2"),
             textField(xFields.majorSpacing, "Major X Spacing:", "10"),
             textField(yFields.minimum, "Min Y:", "-35"),
             textField(yFields.maximum, "Max Y:", "35"),
             textField(yFields.minorSpacing, "Minor Y Spacing:", "1"),
             textField(yFields.majorSpacing, "Major Y Spacing:", "10"),
         }},
    };
    return table;
}

}  // namespace

EasyGraphWizard::EasyGraphWizard(MainWindow& graph) : form(Controls()), window(graph) {}

void EasyGraphWizard::PushButton1_Action()
{
    CalcValues();
}

double EasyGraphWizard::ConvertToUnits(double linesPerPoint) const
{
    return window.form.ListIndex("PopupUnits") == 0 ? pointsPerInch * linesPerPoint
                                                    : linesPerPoint / cmPerInch * pointsPerInch;
}

void EasyGraphWizard::CalcValues()
{
    window.ReadGUIValues();
    const auto fill = [&](const WizardFields& fields, const AxisControls& axis, double room) {
        const double minimum = form.Number(fields.minimum);
        const double maximum = form.Number(fields.maximum);
        const double given = form.Number(fields.minorSpacing);
        const double minorSpacing = given == 0.0 ? 1.0 : given;
        const double lines = (maximum - minimum) / minorSpacing;
        const std::string major = mystring(form.Number(fields.majorSpacing) / minorSpacing);
        window.form.SetText(axis.lineSpacing, mystring(ConvertToUnits(lines / room * 1.0)));
        window.form.SetText(axis.minimum, mystring(minimum));
        window.form.SetText(axis.step, form.Text(fields.minorSpacing));
        window.form.SetText(axis.major, major);
        window.form.SetText(axis.spacing, major);  // a number on each major line
        window.form.SetText(axis.maximum, mystring(maximum));
    };
    fill(xFields, xControls, window.RoomAcross());
    fill(yFields, yControls, window.RoomUp());
    // Replaces the two "Lines/in" texts by whole numbers of lines.
    window.RecalcLinesPerInch();
}

}  // namespace linealis
