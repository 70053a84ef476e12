#pragma once

#include "pdf/Geometry.h"
#include "pipeline/page/PaperPage.h"

#include <optional>
#include <string_view>
#include <vector>

namespace linealis {

/// The lengths of the scales on the calibration sheet, from zero to the last tick.
inline constexpr int calibrationMillimeters = 100;
inline constexpr int calibrationInches = 4;

/// A paper size that has a calibration sheet.
struct CalibrationPaper {
    std::string_view name;   ///< for the command line
    std::string_view title;  ///< for users
    std::int64_t width;      ///< points
    std::int64_t height;
};

/// Returns the paper sizes in the order in which lists show them.
const std::vector<CalibrationPaper>& CalibrationPapers();

/// Returns the paper with that name, or null.
const CalibrationPaper* FindCalibrationPaper(std::string_view name);

/// The zero points of both scales, in points of the page. The tick at k mm is k * 72 / 25.4 points from the zero,
/// the tick at k sixteenths of an inch k * 4.5 points.
struct CalibrationZeros {
    Point across;  ///< of the horizontal scale, which runs to the right
    Point down;    ///< of the vertical scale, which runs downward
};
CalibrationZeros ZerosOf(const CalibrationPaper& paper);

/// Returns the sheet that measures how accurately a printer reproduces lengths: two crossed scales, across and
/// down, each with millimeters on one side and sixteenths of an inch on the other, and instructions.
PaperPage CalibrationPage(const CalibrationPaper& paper);

}  // namespace linealis
