#include "pipeline/Remarks.h"

#include "pdf/MacRoman.h"
#include "pdf/Numbers.h"

#include <algorithm>

namespace linealis {

namespace {

bool IsBlank(std::string_view text)
{
    return text.find_first_not_of(" \t") == std::string_view::npos;
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
    int open = 0;
    for (const char c : text) {
        open += c == '(' ? 1 : 0;
        open -= c == ')' ? 1 : 0;
        if (open < 0) {
            break;
        }
    }
    return open == 0 ? "" : "parentheses must come in pairs, or the page is damaged";
}

/// The value that the page works with.
double Corrected(Meaning meaning, double value)
{
    const auto whole = static_cast<double>(truncated(value));
    switch (meaning) {
    case Meaning::Share:
        return std::clamp(value, 0.0, 100.0);
    case Meaning::LinesPerUnit:
        return value <= 0.0 ? 5.0 : value;
    case Meaning::GridDensity:
    case Meaning::AxisStep:
        return value == 0.0 ? 1.0 : value;
    case Meaning::NumberSpacing:
        return value >= 0.0 && value < 1.0 ? 1.0 : whole;
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

/// What becomes of a value that the page takes as it stands and can do little with.
std::string RemarkOnEffect(Meaning meaning, double value)
{
    constexpr const char* negative = "should not be negative";
    const auto whole = static_cast<double>(truncated(value));
    switch (meaning) {
    case Meaning::Spacing:
        return value == 0.0 ? "0 makes no cells" : value < 0.0 ? negative : "";
    case Meaning::CellSize:
        return value <= 0.0 ? "must be above 0, or no pattern is drawn" : "";
    case Meaning::CustomSize:
        return value <= 0.0 ? "a page has at least 10 points" : "";
    case Meaning::Weight:
    case Meaning::GridDensity:
        return value < 0.0 ? negative : "";
    case Meaning::FontSize:
        return value < 0.0 ? negative : whole != value ? "is printed at " + Str(whole) + " points" : "";
    case Meaning::Scale:
        return value == 0.0 ? "0 leaves an empty page" : "";
    case Meaning::Exponent:
        return value <= 1.0 ? "must be larger than 1" : "";
    default:
        return "";
    }
}

}  // namespace

std::string_view HintFor(Meaning meaning)
{
    switch (meaning) {
    case Meaning::Prose:
        return "Text that is printed";
    case Meaning::Length:
    case Meaning::Spacing:
    case Meaning::CellSize:
    case Meaning::CustomSize:
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
        return "Number of grid lines from one number to the next";
    case Meaning::AxisValue:
        return "In the axis's own values";
    case Meaning::AxisStep:
        return "From one grid line to the next, in the axis's own values";
    case Meaning::Exponent:
        return "Power of the value on a hydraulic axis, above 1";
    case Meaning::Number:
        return "A number";
    }
    return "";
}

std::string RemarkOn(const PaperForm::State& field)
{
    const Meaning meaning = field.control.meaning;
    if (field.control.kind != ControlKind::Text || !field.enabled) {
        return "";
    }
    if (meaning == Meaning::Prose) {
        return RemarkOnProse(field.text);
    }
    if (meaning == Meaning::TitlePlace && field.text.empty()) {
        return "";
    }
    const double value = Val(field.text);
    const double used = Corrected(meaning, value);
    if (!IsNumber(field.text)) {
        const std::string counts = "counts as " + Str(used);
        return IsBlank(field.text) ? "empty " + counts
                                   : "\u201C" + field.text + "\u201D is not a number, " + counts;
    }
    if (used != value) {
        return meaning == Meaning::LinesPerUnit ? "must be above 0, or becomes " + Str(used)
                                                : "counts as " + Str(used);
    }
    return RemarkOnEffect(meaning, value);
}

}  // namespace linealis
