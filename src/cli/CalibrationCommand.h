#pragma once

#include <string>

namespace linealis::cli {

/// Writes the calibration sheet for a paper, "a4" or "letter", as a PDF file. "-" is standard output. Throws
/// UsageError if the paper is unknown, the file name is empty, or the file ends in anything but ".pdf"; WorkError
/// if the file cannot be written. Prints an answer if `asJson`.
void MakeCalibrationSheet(const std::string& paper, const std::string& output, bool asJson);

}  // namespace linealis::cli
