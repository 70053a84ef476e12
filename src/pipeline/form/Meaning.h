#pragma once

#include "text/Message.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace linealis {

/// The meaning of the number or text in a text field: its unit, and how the page uses it. Remarks and pages both
/// get the value from UsedValue.
enum class Meaning {
    Number,           ///< any number
    Prose,            ///< text that is printed
    Length,           ///< in the current unit
    TitlePlace,       ///< a length; empty centers the title
    Spacing,          ///< a length; 0 draws no cells
    CellSize,         ///< a length; 0 or less draws no pattern
    MarkSize,         ///< a length; the side of a mark; 0 draws no mark
    CustomInches,     ///< a side of the paper in inches; less than 10 points counts as 10
    CustomCm,         ///< like CustomInches, in centimeters
    Weight,           ///< of a line, in points in both units
    FontSize,         ///< in points in both units
    Scale,            ///< percent of the true size
    Share,            ///< percent, clamped to 0 to 100, on the form too
    LinesPerUnit,     ///< 0 or less is replaced by 5, on the form too
    GridDensity,      ///< lines per unit of a graph; 0 counts as 1
    Count,            ///< whole; a fraction is truncated
    Quantity,         ///< whole; a negative one counts as 0
    CountFromOne,     ///< whole; less than 1 counts as 1
    Divisions,        ///< whole; less than 1 leaves a side undivided
    WholeUnits,       ///< a whole number of units; a negative one counts as 0
    GridLines,        ///< a number of grid lines; 0 or less means none
    NumberSpacing,    ///< a number of grid lines, whole; 0 to 1 counts as 1; below 0 prints none
    AxisValue,        ///< in axis values
    RangeEnd,         ///< in axis values; both ends of a range may be empty
    AxisStep,         ///< in axis values; 0 counts as 1
    Exponent,         ///< must be above 1
    HydraulicStart,   ///< the minimum of a hydraulic axis; must not be negative
    HydraulicStep,    ///< in axis values; 0 or less draws no grid lines
    HydraulicNumber,  ///< a number of grid lines, rounded up; less than 1 counts as 1
};

/// What the number of a field measures, which decides the conversion of a length typed into it.
enum class Quantity {
    None,          ///< not a length
    Length,        ///< in the unit of the form
    Inches,        ///< in inches, whatever the unit of the form
    Centimeters,   ///< in centimeters, whatever the unit of the form
    Points,        ///< 1/72 inch, whatever the unit of the form
    CountPerUnit,  ///< how many fit into one unit of the form
};

/// The step by which the arrow keys change a value.
enum class Step {
    One,
    Length,     ///< 0.05 in or 0.1 cm
    Tenth,      ///< 0.1
    LastPlace,  ///< one unit of the last decimal place in the text
};

/// Everything known about a meaning: the only source for hints, steps, conversions, and used values.
struct MeaningFacts {
    Meaning meaning;
    std::string_view hint;  ///< briefly, what to enter, with the unit
    Quantity quantity = Quantity::None;
    std::string_view sign = {};  ///< of a number that is no length: "%"
    Step step = Step::One;
    bool canBeNegative = false;      ///< whether steps can go below 0
    bool isCorrectedInForm = false;  ///< whether Generate writes the used value back to the form
    /// Converts a value to the one that the page uses, in the unit of the field. Null: the value itself.
    double (*used)(double value) = nullptr;
    /// Returns a remark on a used value that makes little sense on a page; empty if there is none. Null: no value
    /// has a remark.
    Message (*effect)(double value) = nullptr;
};

/// Returns the facts about a meaning.
const MeaningFacts& FactsOf(Meaning meaning);

/// Returns the value that the page uses, in the unit of the field.
double UsedValue(Meaning meaning, double value);

/// Returns a custom side of the paper in points, truncated, before the page raises it to smallestPage. `meaning`
/// gives the unit of `side`.
std::int64_t PointsOfCustomSide(Meaning meaning, double side);

/// The smallest width and height of a page, in points.
inline constexpr std::int64_t smallestPage = 10;

/// Returns a remark for the user on the text of a field: that it is not a number, which value is used instead, or
/// why the value makes little sense on a page. Empty if there is none.
Message RemarkOn(Meaning meaning, const std::string& text);

}  // namespace linealis
