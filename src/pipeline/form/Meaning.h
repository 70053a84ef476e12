#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace linealis {

/// What the number or text of a text field stands for: its unit, and what the page makes of it. Remarks and pages
/// take the value used from the same function, UsedValue.
enum class Meaning {
    Number,           ///< any number
    Prose,            ///< text that is printed
    Length,           ///< in the current unit
    TitlePlace,       ///< a length; empty centers the title
    Spacing,          ///< a length; 0 makes no cells
    CellSize,         ///< a length; 0 or less draws no pattern
    MarkSize,         ///< a length; the side of a mark, which 0 does not draw
    CustomInches,     ///< a side of the paper in inches; less than 10 points counts as 10
    CustomCm,         ///< the same in centimeters
    Weight,           ///< of a line, in points in both units
    FontSize,         ///< in points in both units
    Scale,            ///< per cent of the true size
    Share,            ///< per cent, limited to 0 to 100, in the form too
    LinesPerUnit,     ///< 0 or less is replaced by 5, in the form too
    GridDensity,      ///< lines per unit of a graph; 0 counts as 1
    Count,            ///< whole; a fraction is cut off
    Quantity,         ///< whole; a negative one counts as 0
    CountFromOne,     ///< whole; less than 1 counts as 1
    Divisions,        ///< whole; less than 1 leaves a side undivided
    WholeUnits,       ///< a whole number of units; a negative one counts as 0
    GridLines,        ///< a number of grid lines; 0 or less means none
    NumberSpacing,    ///< a number of grid lines, whole; from 0 to 1 counts as 1; below 0 writes none
    AxisValue,        ///< in the axis's own values
    AxisStep,         ///< in the axis's own values; 0 counts as 1
    Exponent,         ///< must be above 1
    HydraulicStart,   ///< the minimum of a hydraulic axis; must not be negative
    HydraulicStep,    ///< in the axis's own values; 0 or less draws no grid line
    HydraulicNumber,  ///< a number of grid lines, rounded up; less than 1 counts as 1
};

/// What the number of a field measures, and so what a length typed into it becomes.
enum class Quantity {
    None,          ///< no length
    Length,        ///< in the form's unit
    Inches,        ///< whatever the form's unit
    Centimeters,   ///< likewise
    Points,        ///< 1/72 inch, likewise
    CountPerUnit,  ///< how many fit into one of the form's units
};

/// By how much the arrow keys change a value.
enum class Step {
    One,
    Length,     ///< 0.05 in or 0.1 cm
    Tenth,      ///< 0.1
    LastPlace,  ///< one in the last decimal place that the text shows
};

/// All that is known of a meaning. Whoever says, steps, converts or uses a value takes it from here.
struct MeaningFacts {
    Meaning meaning;
    std::string_view hint;  ///< a few words on what to enter, with the unit
    Quantity quantity = Quantity::None;
    std::string_view sign = {};  ///< of a number that is no length: "%"
    Step step = Step::One;
    bool canBeNegative = false;      ///< whether steps lead below 0
    bool isCorrectedInForm = false;  ///< whether Generate writes the used value back into the form
    /// The value that the page works with, in the unit of the field; null: the value itself.
    double (*used)(double value) = nullptr;
    /// What becomes of a value that the page takes as it stands and can do little with; null, or empty: all is
    /// well.
    std::string (*effect)(double value) = nullptr;
};

const MeaningFacts& FactsOf(Meaning meaning);

/// The value that the page works with, in the unit of the field.
double UsedValue(Meaning meaning, double value);

/// A custom side of the paper in whole points, cut off, before a page raises it to its least size. `meaning` tells
/// the unit.
std::int64_t PointsOfCustomSide(Meaning meaning, double side);

/// No page is smaller than this either way. Points.
inline constexpr std::int64_t smallestPage = 10;

/// What a person must know of the field: that its text is no number, which value counts instead, or what becomes of
/// a value that the page can do little with. Empty if all is well.
std::string RemarkOn(Meaning meaning, const std::string& text);

}  // namespace linealis
