#pragma once

#include <string>

namespace linealis::cli {

/// Writes the calibration sheet for a paper, "a4" or "letter", as a PDF file. "-" is standard output.
void MakeCalibrationSheet(const std::string& paper, const std::string& output);

}  // namespace linealis::cli
