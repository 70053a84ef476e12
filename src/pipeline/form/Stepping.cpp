#include "pipeline/form/Stepping.h"

#include "text/Numbers.h"

#include <algorithm>
#include <cmath>

namespace linealis {

namespace {

/// Returns the number of digits after the decimal mark of the number that a text begins with, at most 6.
int DecimalsOf(std::string_view text)
{
    const std::size_t mark = text.find_first_of(".,");
    if (mark == std::string_view::npos) {
        return 0;
    }
    const std::size_t end = text.find_first_not_of("0123456789", mark + 1);
    return static_cast<int>(
        std::min<std::size_t>((end == std::string_view::npos ? text.size() : end) - mark - 1, 6));
}

double BaseStep(Step step, int decimals, LengthUnit unit)
{
    constexpr double inchStep = 0.05, cmStep = 0.1, tenth = 0.1;
    switch (step) {
    case Step::Length:
        return unit == LengthUnit::Centimeters ? cmStep : inchStep;
    case Step::Tenth:
        return tenth;
    case Step::LastPlace:
        return std::pow(10.0, -decimals);
    case Step::One:
        break;
    }
    return 1.0;
}

}  // namespace

std::string Stepped(Meaning meaning, const std::string& text, double steps, LengthUnit unit)
{
    if (meaning == Meaning::Prose) {
        return text;
    }
    const int decimals = DecimalsOf(text);
    const double value = Val(text);
    const MeaningFacts& facts = FactsOf(meaning);
    double stepped = value + steps * BaseStep(facts.step, decimals, unit);
    if (!facts.canBeNegative && value >= 0.0) {
        stepped = std::max(stepped, 0.0);
    }
    // Round away the error in the last bits of the sum.
    const double grain = std::pow(10.0, std::max(decimals, 2));
    const double rounded = std::round(stepped * grain) / grain;
    return std::isfinite(rounded) ? Str(rounded) : text;
}

}  // namespace linealis
