#pragma once

#include "pdf/Geometry.h"
#include "pipeline/page/PaperPage.h"

#include <optional>
#include <string_view>
#include <vector>

namespace linealis {

/// The lengths that the sheet's scales have, from zero to their end.
inline constexpr int calibrationMillimeters = 100;
inline constexpr int calibrationInches = 4;

/// A paper that there is a calibration sheet for.
struct CalibrationPaper {
    std::string_view name;   ///< on the command line
    std::string_view title;  ///< on a screen
    std::int64_t width;      ///< points
    std::int64_t height;
};

const std::vector<CalibrationPaper>& CalibrationPapers();

/// The paper of that name; null if there is none.
const CalibrationPaper* FindCalibrationPaper(std::string_view name);

/// The zeros of the sheet's two scales, in points of the page. From them a tick of k mm is k * 72 / 25.4 points
/// away, one of k sixteenths of an inch k * 4.5 points.
struct CalibrationZeros {
    Point across;  ///< that scale runs to the right
    Point down;    ///< that scale runs downwards
};
CalibrationZeros ZerosOf(const CalibrationPaper& paper);

/// The sheet that shows how true a printer's lengths are: two crossed scales, across and down, each in mm on one
/// side and in sixteenths of an inch on the other, and what to do with them.
PaperPage CalibrationPage(const CalibrationPaper& paper);

}  // namespace linealis
