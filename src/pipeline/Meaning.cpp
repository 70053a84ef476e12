#include "pipeline/Meaning.h"

#include "pdf/MacRoman.h"
#include "pdf/Numbers.h"
#include "pdf/Units.h"

#include <algorithm>
#include <cmath>

namespace linealis {

namespace {

constexpr double defaultLinesPerUnit = 5.0;

bool IsBlank(std::string_view text)
{
    return text.find_first_not_of(" \t") == std::string_view::npos;
}

bool HasPairedParentheses(std::string_view text)
{
    int open = 0;
    for (const char c : text) {
        open += c == '(' ? 1 : 0;
        open -= c == ')' ? 1 : 0;
        if (open < 0) {
            return false;
        }
    }
    return open == 0;
}

/// Parentheses and backslashes go to the page unescaped, so the page must be able to live with them.
std::string RemarkOnProse(std::string_view text)
{
    for (const std::string_view character : Characters(text)) {
        if (!IsInMacRoman(character)) {
            return "\u201C" + std::string(character) + "\u201D cannot be printed and becomes \u201C?\u201D";
        }
    }
    if (text.find('\\') != std::string_view::npos) {
        return "a backslash changes what is printed behind it";
    }
    return HasPairedParentheses(text) ? "" : "parentheses must come in pairs, or the page is damaged";
}

std::string RemarkOnMissingNumber(Meaning meaning, const std::string& text)
{
    const std::string counts = "counts as " + Str(UsedValue(meaning, Val(text))) +
                               (meaning == Meaning::HydraulicStep ? ", which draws no grid line" : "");
    return IsBlank(text) ? "empty " + counts : "\u201C" + text + "\u201D is not a number, " + counts;
}

std::string UnlessAbove(double limit, double value, const char* remark)
{
    return value > limit ? "" : remark;
}

std::string IfNegative(double value)
{
    return value < 0.0 ? "should not be negative" : "";
}

/// What becomes of a value that the page takes as it stands and can do little with.
std::string RemarkOnEffect(Meaning meaning, double value)
{
    const auto whole = static_cast<double>(truncated(value));
    switch (meaning) {
    case Meaning::Spacing:
        return value == 0.0 ? "0 makes no cells" : IfNegative(value);
    case Meaning::CellSize:
        return UnlessAbove(0.0, value, "must be above 0, or no pattern is drawn");
    case Meaning::CustomInches:
    case Meaning::CustomCm:
        return PointsOfCustomSide(meaning, value) < smallestPage ? "a page has at least 10 points" : "";
    case Meaning::Weight:
    case Meaning::GridDensity:
        return IfNegative(value);
    case Meaning::FontSize:
        return value >= 0.0 && whole != value ? "is printed at " + Str(whole) + " points" : IfNegative(value);
    case Meaning::Scale:
        return value == 0.0 ? "0 leaves an empty page" : "";
    case Meaning::NumberSpacing:
        return value < 0.0 ? "below 0 writes no numbers" : "";
    case Meaning::Exponent:
        return UnlessAbove(1.0, value, "must be larger than 1");
    case Meaning::HydraulicStep:
        return UnlessAbove(0.0, value, "must be above 0, or no grid line is drawn");
    case Meaning::HydraulicStart:
        return value < 0.0 ? "must not be negative on a hydraulic axis" : "";
    default:
        return "";
    }
}

}  // namespace

double UsedValue(Meaning meaning, double value)
{
    const auto whole = static_cast<double>(truncated(value));
    switch (meaning) {
    case Meaning::Share:
        return std::clamp(value, 0.0, 100.0);
    case Meaning::LinesPerUnit:
        return value <= 0.0 ? defaultLinesPerUnit : value;
    case Meaning::GridDensity:
    case Meaning::AxisStep:
        return value == 0.0 ? 1.0 : value;
    case Meaning::NumberSpacing:
        return value < 0.0 ? value : std::max(whole, 1.0);
    case Meaning::HydraulicNumber:
        return std::max(std::ceil(value), 1.0);
    case Meaning::Count:
        return whole;
    case Meaning::CircleCount:
        return std::max(whole, 1.0);
    case Meaning::Quantity:
    case Meaning::WholeUnits:
        return std::max(whole, 0.0);
    default:
        return value;
    }
}

bool IsCorrectedInForm(Meaning meaning)
{
    return meaning == Meaning::Share || meaning == Meaning::LinesPerUnit;
}

std::int64_t PointsOfCustomSide(Meaning meaning, double side)
{
    return truncated(side * (meaning == Meaning::CustomInches ? pointsPerInch : pointsPerCmOfCustomSize));
}

std::string_view HintFor(Meaning meaning)
{
    switch (meaning) {
    case Meaning::Prose:
        return "Text that is printed";
    case Meaning::Length:
    case Meaning::Spacing:
    case Meaning::CellSize:
    case Meaning::CustomInches:
    case Meaning::CustomCm:
        return "Length in the current unit, inches or centimetres";
    case Meaning::TitlePlace:
        return "Length in the current unit; empty centres the title";
    case Meaning::Weight:
        return "Line width in points (1/72 inch), whatever the unit";
    case Meaning::FontSize:
        return "Text size in points (1/72 inch), whatever the unit";
    case Meaning::Scale:
        return "Per cent of the true size";
    case Meaning::Share:
        return "Per cent, from 0 to 100";
    case Meaning::LinesPerUnit:
    case Meaning::GridDensity:
        return "Lines in an inch or a centimetre";
    case Meaning::Count:
    case Meaning::Quantity:
    case Meaning::CircleCount:
        return "A whole number";
    case Meaning::WholeUnits:
        return "A whole number of inches or centimetres";
    case Meaning::GridLines:
        return "Number of grid lines from one major line to the next; 0 for none";
    case Meaning::NumberSpacing:
    case Meaning::HydraulicNumber:
        return "Number of grid lines from one number to the next";
    case Meaning::AxisValue:
    case Meaning::HydraulicStart:
        return "In the axis's own values";
    case Meaning::AxisStep:
    case Meaning::HydraulicStep:
        return "From one grid line to the next, in the axis's own values";
    case Meaning::Exponent:
        return "Power of the value on a hydraulic axis, above 1";
    case Meaning::Number:
        return "A number";
    }
    return "";
}

std::string RemarkOn(Meaning meaning, const std::string& text)
{
    if (meaning == Meaning::Prose) {
        return RemarkOnProse(text);
    }
    if (meaning == Meaning::TitlePlace && text.empty()) {
        return "";
    }
    if (!IsNumber(text)) {
        return RemarkOnMissingNumber(meaning, text);
    }
    const double value = Val(text);
    const double used = UsedValue(meaning, value);
    if (used != value) {
        return meaning == Meaning::LinesPerUnit ? "must be above 0, or becomes " + Str(used)
                                                : "counts as " + Str(used);
    }
    return RemarkOnEffect(meaning, value);
}

}  // namespace linealis
