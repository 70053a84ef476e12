#include "pipeline/PageWarning.h"

#include "pdf/Numbers.h"
#include "pipeline/FieldWords.h"

#include <cmath>

namespace linealis {

namespace {

/// With three significant digits.
std::string Rough(double points)
{
    const double grain = std::pow(10.0, 2.0 - std::floor(std::log10(points)));
    return Str(std::round(points * grain) / grain) + " pt";
}

}  // namespace

void WarnOfInk(const Form& form, const TextField& weight, double distance, PageWarnings& warnings)
{
    const double width = weight.Used();
    if (distance > 0.0 && width >= distance) {
        warnings.push_back({"ink", std::string(weight.Name()),
                            WholeName(form, weight) + ": " + Rough(width) + " wide but only " + Rough(distance) +
                                " apart, they leave no white between them"});
    }
}

}  // namespace linealis
