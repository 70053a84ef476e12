#include "pipeline/form/Meaning.h"

#include "pdf/Units.h"
#include "text/MacRoman.h"
#include "text/Numbers.h"
#include "text/ShortText.h"

#include <algorithm>
#include <array>
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

/// Parentheses and backslashes go to the page unescaped, so they must be valid in a PDF string.
Message RemarkOnProse(std::string_view text)
{
    for (const std::string_view character : Characters(text)) {
        if (!IsInMacRoman(character)) {
            return Message("\u201C%1\u201D cannot be printed and is replaced by \u201C?\u201D", character);
        }
    }
    if (text.find('\\') != std::string_view::npos) {
        return Message("a backslash changes how the text after it prints");
    }
    return HasPairedParentheses(text) ? Message() : Message("parentheses must be balanced, or the page is damaged");
}

template <Meaning meaning>
Message EffectOfCustomSide(double side)
{
    return PointsOfCustomSide(meaning, side) < smallestPage ? Message("a page side is at least 10 points")
                                                            : Message();
}

double Whole(double value)
{
    return static_cast<double>(truncated(value));
}

double WholeFromZero(double value)
{
    return std::max(Whole(value), 0.0);
}

double OneInsteadOfZero(double value)
{
    return value == 0.0 ? 1.0 : value;
}

Message EffectOfCell(double value)
{
    return value > 0.0 ? Message() : Message("must be above 0, or no pattern is drawn");
}

Message EffectOfMark(double value)
{
    return value == 0.0 ? Message("0 draws no bar") : value < 0.0 ? Message("should not be negative") : Message();
}

Message EffectOfWeight(double value)
{
    return value < 0.0 ? Message("should not be negative") : Message();
}

Message EffectOfDensity(double value)
{
    return value < 0.0 ? Message("must be above 0, or no grid lines are drawn") : Message();
}

Message EffectOfFontSize(double value)
{
    const double printed = Whole(value);
    if (value < 0.0) {
        return Message("should not be negative");
    }
    if (printed == 0.0) {
        return Message("must be at least 1, or nothing is printed");
    }
    return printed != value ? Message("prints at %1 points", printed) : Message();
}

Message EffectOfScale(double value)
{
    return value == 0.0 ? Message("0 produces an empty page") : Message();
}

Message EffectOfDivisions(double value)
{
    return value < 1.0 ? Message("must be at least 1, or the sides are not divided") : Message();
}

Message EffectOfNumberSpacing(double value)
{
    return value < 0.0 ? Message("a negative value prints no numbers") : Message();
}

Message EffectOfExponent(double value)
{
    return value > 1.0 ? Message() : Message("must be larger than 1");
}

Message EffectOfHydraulicStart(double value)
{
    return value < 0.0 ? Message("must not be negative on a hydraulic axis") : Message();
}

Message EffectOfHydraulicStep(double value)
{
    return value > 0.0 ? Message() : Message("must be above 0, or no grid lines are drawn");
}

constexpr std::string_view lengthHint = "Length in the current unit, inches or centimeters";
constexpr std::string_view wholeHint = "Whole number";
constexpr std::string_view densityHint = "Lines per inch or centimeter";
constexpr std::string_view numberSpacingHint = "Number of grid lines from one number to the next";
constexpr std::string_view axisValueHint = "Value on the axis";
constexpr std::string_view axisStepHint = "Distance from one grid line to the next, in axis values";

// In the order of Meaning, which FactsOf relies on.
constexpr auto allFacts = std::to_array<MeaningFacts>({
    {.meaning = Meaning::Number, .hint = "Number", .step = Step::LastPlace, .canBeNegative = true},
    {.meaning = Meaning::Prose, .hint = "Text to print"},
    {.meaning = Meaning::Length,
     .hint = lengthHint,
     .quantity = Quantity::Length,
     .step = Step::Length,
     .canBeNegative = true},
    {.meaning = Meaning::TitlePlace,
     .hint = "Length in the current unit; leave empty to center the title",
     .quantity = Quantity::Length,
     .step = Step::Length,
     .canBeNegative = true},
    {.meaning = Meaning::Spacing,
     .hint = lengthHint,
     .quantity = Quantity::Length,
     .step = Step::Length,
     .effect = EffectOfCell},
    {.meaning = Meaning::CellSize,
     .hint = lengthHint,
     .quantity = Quantity::Length,
     .step = Step::Length,
     .effect = EffectOfCell},
    {.meaning = Meaning::MarkSize,
     .hint = lengthHint,
     .quantity = Quantity::Length,
     .step = Step::Length,
     .effect = EffectOfMark},
    {.meaning = Meaning::CustomInches,
     .hint = lengthHint,
     .quantity = Quantity::Inches,
     .step = Step::Length,
     .effect = EffectOfCustomSide<Meaning::CustomInches>},
    {.meaning = Meaning::CustomCm,
     .hint = lengthHint,
     .quantity = Quantity::Centimeters,
     .step = Step::Length,
     .effect = EffectOfCustomSide<Meaning::CustomCm>},
    {.meaning = Meaning::Weight,
     .hint = "Line width in points (1/72 inch), whatever the unit",
     .quantity = Quantity::Points,
     .step = Step::Tenth,
     .effect = EffectOfWeight},
    {.meaning = Meaning::FontSize,
     .hint = "Text size in points (1/72 inch), whatever the unit",
     .quantity = Quantity::Points,
     .effect = EffectOfFontSize},
    {.meaning = Meaning::Scale, .hint = "Percent of the true size", .sign = "%", .effect = EffectOfScale},
    {.meaning = Meaning::Share,
     .hint = "Percent, from 0 to 100",
     .sign = "%",
     .isCorrectedInForm = true,
     .used = [](double value) { return std::clamp(value, 0.0, 100.0); }},
    {.meaning = Meaning::LinesPerUnit,
     .hint = densityHint,
     .quantity = Quantity::CountPerUnit,
     .isCorrectedInForm = true,
     .used = [](double value) { return value <= 0.0 ? defaultLinesPerUnit : value; }},
    {.meaning = Meaning::GridDensity,
     .hint = densityHint,
     .quantity = Quantity::CountPerUnit,
     .used = OneInsteadOfZero,
     .effect = EffectOfDensity},
    {.meaning = Meaning::Count, .hint = wholeHint, .used = Whole},
    {.meaning = Meaning::Quantity, .hint = wholeHint, .used = WholeFromZero},
    {.meaning = Meaning::CountFromOne,
     .hint = wholeHint,
     .used = [](double value) { return std::max(Whole(value), 1.0); }},
    {.meaning = Meaning::Divisions, .hint = wholeHint, .used = Whole, .effect = EffectOfDivisions},
    {.meaning = Meaning::WholeUnits,
     .hint = "Whole number of inches or centimeters",
     .quantity = Quantity::Length,
     .used = WholeFromZero},
    {.meaning = Meaning::GridLines, .hint = "Number of grid lines from one major line to the next; 0 for none"},
    {.meaning = Meaning::NumberSpacing,
     .hint = numberSpacingHint,
     .canBeNegative = true,
     .used = [](double value) { return value < 0.0 ? value : std::max(Whole(value), 1.0); },
     .effect = EffectOfNumberSpacing},
    {.meaning = Meaning::AxisValue, .hint = axisValueHint, .step = Step::LastPlace, .canBeNegative = true},
    {.meaning = Meaning::RangeEnd,
     .hint = "Value of the data; leave both empty to keep the axis",
     .step = Step::LastPlace,
     .canBeNegative = true},
    {.meaning = Meaning::AxisStep,
     .hint = axisStepHint,
     .step = Step::LastPlace,
     .canBeNegative = true,
     .used = OneInsteadOfZero},
    {.meaning = Meaning::Exponent,
     .hint = "Exponent of a hydraulic axis, larger than 1",
     .step = Step::LastPlace,
     .effect = EffectOfExponent},
    {.meaning = Meaning::HydraulicStart,
     .hint = axisValueHint,
     .step = Step::LastPlace,
     .effect = EffectOfHydraulicStart},
    {.meaning = Meaning::HydraulicStep,
     .hint = axisStepHint,
     .step = Step::LastPlace,
     .effect = EffectOfHydraulicStep},
    {.meaning = Meaning::HydraulicNumber,
     .hint = numberSpacingHint,
     .used = [](double value) { return std::max(std::ceil(value), 1.0); }},
});

constexpr bool IsInOrder()
{
    for (std::size_t i = 0; i < allFacts.size(); ++i) {
        if (static_cast<std::size_t>(allFacts[i].meaning) != i) {
            return false;
        }
    }
    return true;
}
static_assert(IsInOrder(), "a row is not at the index of its meaning");
static_assert(allFacts.back().meaning == Meaning::HydraulicNumber, "a meaning has no row");

Message EffectOf(Meaning meaning, double value)
{
    const auto effect = FactsOf(meaning).effect;
    return effect == nullptr ? Message() : effect(value);
}

/// Appends the effect of the value, if it has one.
Message WithEffect(const Message& remark, Meaning meaning, double value)
{
    const Message effect = EffectOf(meaning, value);
    return effect.IsEmpty() ? remark : Message("%1: %2", remark, effect);
}

Message RemarkOnMissingNumber(Meaning meaning, const std::string& text)
{
    const double used = UsedValue(meaning, Val(text));
    return WithEffect(IsBlank(text)
                          ? Message("an empty field counts as %1", used)
                          : Message("\u201C%1\u201D is not a number and counts as %2", Shortened(text), used),
                      meaning, used);
}

}  // namespace

const MeaningFacts& FactsOf(Meaning meaning)
{
    return allFacts[static_cast<std::size_t>(meaning)];
}

double UsedValue(Meaning meaning, double value)
{
    const auto used = FactsOf(meaning).used;
    return used == nullptr ? value : used(value);
}

std::int64_t PointsOfCustomSide(Meaning meaning, double side)
{
    return truncated(side * (meaning == Meaning::CustomInches ? pointsPerInch : pointsPerCmOfCustomSize));
}

Message RemarkOn(Meaning meaning, const std::string& text)
{
    if (meaning == Meaning::Prose) {
        return RemarkOnProse(text);
    }
    if (meaning == Meaning::TitlePlace && text.empty()) {
        return {};
    }
    if (meaning == Meaning::RangeEnd) {  // OK is refused, so it counts as nothing
        return IsBlank(text) || IsNumber(text) ? Message()
                                               : Message("\u201C%1\u201D is not a number", Shortened(text));
    }
    if (!IsNumber(text)) {
        return RemarkOnMissingNumber(meaning, text);
    }
    const double value = Val(text);
    const double used = UsedValue(meaning, value);
    if (used == value) {
        return EffectOf(meaning, value);
    }
    return WithEffect(meaning == Meaning::LinesPerUnit ? Message("must be above 0, or it becomes %1", used)
                                                       : Message("counts as %1", used),
                      meaning, used);
}

}  // namespace linealis
