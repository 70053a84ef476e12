#include "pipeline/form/UnitConversion.h"

#include "pdf/Units.h"
#include "text/Numbers.h"

namespace linealis {

namespace {

void Convert(TextField& field, bool toInches)
{
    const UnitRule rule = field.Declared().unitRule;
    if (rule == UnitRule::Keep) {
        return;
    }
    const bool divided = toInches == (rule == UnitRule::Length);
    const double number = field.Number();
    field.SetText(Str(divided ? number / cmPerInch : number * cmPerInch));
}

}  // namespace

void ConvertUnits(const Form& form, bool toInches)
{
    for (Control* const control : form.Controls()) {
        if (control->Kind() == ControlKind::Label) {
            static_cast<Label*>(control)->ShowUnit(toInches);
        } else if (control->Kind() == ControlKind::Text) {
            Convert(static_cast<TextField&>(*control), toInches);
        }
    }
}

}  // namespace linealis
