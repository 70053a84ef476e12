#pragma once

#include "platform/FolderItem.h"
#include "text/Message.h"

#include <string>
#include <string_view>
#include <system_error>

namespace linealis {

/// The factors that correct the lengths on a printer. Measured on paper in portrait orientation: x is across the
/// sheet, y down the sheet.
struct PrinterFactors {
    double x = 1.0;
    double y = 1.0;

    bool operator==(const PrinterFactors&) const = default;
};

/// The range of plausible factors. A printer that is off by more is faulty, or its driver has fitted the sheet to
/// the paper.
inline constexpr double smallestFactor = 0.9;
inline constexpr double largestFactor = 1.1;

/// Returns the factor of a printer that prints a length of `expected` as `measured`. Both are in the same unit;
/// `measured` must not be 0.
constexpr double FactorOf(double expected, double measured)
{
    return expected / measured;
}

/// Returns why a measured length is not acceptable, with the possible range, as a sentence. Empty if it is
/// acceptable. `length` is the text that the user entered. Both lengths are in millimeters; `direction` is
/// "across" or "down".
Message LengthProblem(const Message& direction, std::string_view length, double expected);

/// Returns the file with the factors of all printers. An empty reference if `preferencesFolder` is one.
FolderItem PrinterFactorsFile(const FolderItem& preferencesFolder);

/// Returns the factors of a printer from the last line of the file that names it, or 1 and 1 if there is none.
/// Ignores a line that is not two factors from smallestFactor to largestFactor and a name. A file that cannot be
/// read counts as empty.
PrinterFactors ReadPrinterFactors(const FolderItem& file, std::string_view printer);

/// Replaces the printer's factors in the file, or removes them if both are 1. Keeps the lines of other printers,
/// but not lines that ReadPrinterFactors ignores. Returns invalid_argument if a factor is out of range or the name
/// is empty. Leaves a file that cannot be read unchanged and returns the reason. Does nothing if `file` is empty.
std::error_code WritePrinterFactors(const FolderItem& file, std::string_view printer, PrinterFactors factors);

}  // namespace linealis
