#include "pipeline/form/LengthText.h"

#include "pdf/Units.h"
#include "text/LetterCase.h"
#include "text/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>

namespace linealis {

namespace {

struct NamedUnit {
    std::string_view name;  ///< in lowercase
    double inches;
};

constexpr std::array lengthUnits = {NamedUnit{"mm", 0.1 / cmPerInch},
                                    NamedUnit{"cm", 1.0 / cmPerInch},
                                    NamedUnit{"in", 1.0},
                                    NamedUnit{"inch", 1.0},
                                    NamedUnit{"inches", 1.0},
                                    NamedUnit{"\"", 1.0},
                                    NamedUnit{"\u2033", 1.0},
                                    NamedUnit{"zoll", 1.0},
                                    NamedUnit{"po", 1.0},
                                    NamedUnit{"pulg.", 1.0},
                                    NamedUnit{"pol.", 1.0},
                                    NamedUnit{"インチ", 1.0},
                                    NamedUnit{"pt", 1.0 / pointsPerInch}};

/// Reads a text piece by piece from its start.
class LengthScanner {
public:
    explicit LengthScanner(std::string_view theText) : text(theText) { SkipBlanks(); }

    bool AtEnd() const { return text.empty(); }

    /// Consumes the character and following blanks if it comes next. Returns whether it did.
    bool Take(char piece)
    {
        const bool isNext = !text.empty() && text.front() == piece;
        if (isNext) {
            text.remove_prefix(1);
            SkipBlanks();
        }
        return isNext;
    }

    /// Consumes digits with at most one decimal mark, and following blanks. Returns nothing if there is no digit.
    std::optional<double> TakeNumber()
    {
        std::size_t length = 0;
        std::size_t marks = 0;
        while (length < text.size() && (IsDigit(text[length]) || (IsMark(text[length]) && marks++ == 0))) {
            ++length;
        }
        const std::string_view number = text.substr(0, length);
        if (std::none_of(number.begin(), number.end(), IsDigit)) {
            return std::nullopt;
        }
        text.remove_prefix(length);
        SkipBlanks();
        return Val(number);
    }

    /// Returns the unread text without trailing blanks.
    std::string_view Rest()
    {
        while (!text.empty() && text.back() == ' ') {
            text.remove_suffix(1);
        }
        return text;
    }

private:
    static bool IsMark(char c) { return c == '.' || c == ','; }
    void SkipBlanks() { text.remove_prefix(std::min(text.find_first_not_of(' '), text.size())); }

    std::string_view text;
};

const NamedUnit* FindUnit(std::string_view name)
{
    const std::span<const NamedUnit> units = lengthUnits;
    const auto found = std::find_if(units.begin(), units.end(),
                                    [&](const NamedUnit& unit) { return IsSameText(unit.name, name); });
    return found == units.end() ? nullptr : &*found;
}

/// Reads "1/4", "1 1/2", or "5". Returns nothing for anything else or if the denominator is 0.
std::optional<double> TakeAmount(LengthScanner& scanner, bool& isFraction)
{
    const std::optional<double> first = scanner.TakeNumber();
    if (!first) {
        return std::nullopt;
    }
    if (scanner.Take('/')) {
        const std::optional<double> below = scanner.TakeNumber();
        isFraction = true;
        return below && *below != 0.0 ? std::optional(*first / *below) : std::nullopt;
    }
    if (const std::optional<double> above = scanner.TakeNumber()) {
        const std::optional<double> below = scanner.Take('/') ? scanner.TakeNumber() : std::nullopt;
        isFraction = true;
        return below && *below != 0.0 ? std::optional(*first + *above / *below) : std::nullopt;
    }
    return first;
}

/// Returns the inches in one unit of the quantity, or 0 if it has none. A count per unit refers to the unit of the
/// form.
double InchesIn(Quantity quantity, LengthUnit formUnit)
{
    constexpr double inchesPerCm = 1.0 / cmPerInch;
    switch (quantity) {
    case Quantity::Length:
    case Quantity::CountPerUnit:
        return formUnit == LengthUnit::Inches ? 1.0 : formUnit == LengthUnit::Centimeters ? inchesPerCm : 0.0;
    case Quantity::Inches:
        return 1.0;
    case Quantity::Centimeters:
        return inchesPerCm;
    case Quantity::Points:
        return 1.0 / pointsPerInch;
    case Quantity::None:
        break;
    }
    return 0.0;
}

std::optional<double> IfFinite(double number)
{
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

}  // namespace

LengthUnit UnitOf(const Form& form, const TextField& field)
{
    switch (FactsOf(field.MeansNow()).quantity) {
    case Quantity::Length:
        return form.UnitOfLengths();
    case Quantity::Inches:
        return LengthUnit::Inches;
    case Quantity::Centimeters:
        return LengthUnit::Centimeters;
    default:
        return LengthUnit::None;
    }
}

std::optional<double> TypedNumber(std::string_view text, Quantity quantity, LengthUnit formUnit)
{
    LengthScanner scanner(text);
    const double sign = scanner.Take('-') ? -1.0 : 1.0;
    bool isFraction = false;
    const std::optional<double> amount = TakeAmount(scanner, isFraction);
    if (!amount) {
        return std::nullopt;
    }
    if (scanner.Rest().empty()) {
        return isFraction ? IfFinite(sign * *amount) : std::nullopt;
    }
    const NamedUnit* const unit = FindUnit(scanner.Rest());
    const double inches = InchesIn(quantity, formUnit);
    if (unit == nullptr || inches == 0.0) {
        return std::nullopt;
    }
    // Multiply by a factor between the units, so that a length in the unit of the field stays exactly as typed.
    const double length = sign * *amount * (unit->inches / inches);
    return IfFinite(quantity == Quantity::CountPerUnit ? 1.0 / length : length);
}

std::optional<double> TypedNumber(std::string_view text, const Form& form, const TextField& field)
{
    const Meaning meaning = field.MeansNow();
    return meaning == Meaning::Prose ? std::nullopt
                                     : TypedNumber(text, FactsOf(meaning).quantity, form.UnitOfLengths());
}

}  // namespace linealis
