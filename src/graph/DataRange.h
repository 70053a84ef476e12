#pragma once

#include "graph/GraphPaper.h"

#include <optional>
#include <string>
#include <variant>

namespace linealis {

/// The smallest and the largest value of the data on one axis.
struct DataRange {
    double minimum = 0.0;
    double maximum = 0.0;
    bool isLog = false;
};

/// How close the lines of a linear axis should be.
enum class Fineness { coarse, medium, fine };

/// How an axis shows a range of data. Lines and steps are those of a linear axis.
struct AxisFit {
    AxisType type = linear;
    double first = 0.0;        ///< the value at the first line or at the beginning of the first decade
    double last = 0.0;         ///< the value at the last line or at the end of the last decade
    double step = 0.0;         ///< the value from one line to the next: 1, 2, or 5 times a power of ten
    double majorLines = 0.0;   ///< from one major line to the next
    double numberLines = 0.0;  ///< from one number to the next; a multiple of majorLines
    double spacing = 0.0;      ///< on paper, of lines or decades, in points
    std::string density;       ///< the text of the field for lines per unit
};

/// The length of an axis on paper and the size of its numbers.
struct AxisRoom {
    AxisName name = AxisName::x;
    double length = 0.0;      ///< between the margins, in points
    double unitPixels = 0.0;  ///< points per unit of length
    double textSize = 0.0;    ///< in points
    bool isTrigonometric = false;
    bool showsAxes = true;

    bool IsInInches() const { return unitPixels == pointsPerInch; }
};

/// Why a range cannot be shown: one sentence with the range and what is possible.
struct RangeProblem {
    Message sentence;
};

using AxisFitOrProblem = std::variant<AxisFit, RangeProblem>;

/// Fits a range to an axis. Every value of the range lies on the axis. The distance between lines is a round number
/// of millimeters or a simple fraction of an inch if the range then takes up most of the room; otherwise, the axis
/// fills the room exactly.
AxisFitOrProblem FitAxis(const DataRange& range, Fineness fineness, const AxisRoom& room);

/// Returns the room for an axis on the paper of the form.
AxisRoom RoomOf(const GraphForm& form, AxisName axis);

/// Enters a fit into the fields of its axis.
void EnterFit(const AxisFit& fit, const AxisFields& fields);

/// Describes a fit: "X axis: 0 to 260, a line every 5 (2 mm), a number every 20".
Message WordsOf(const AxisFit& fit, const AxisRoom& room);

}  // namespace linealis
