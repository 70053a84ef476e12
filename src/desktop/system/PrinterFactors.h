#pragma once

#include "platform/FolderItem.h"

#include <string>
#include <string_view>
#include <system_error>

namespace linealis {

/// What lengths are multiplied by on the way to a printer, so that they come out true. Measured on paper in
/// portrait orientation: x is across the sheet, y down it.
struct PrinterFactors {
    double x = 1.0;
    double y = 1.0;

    bool operator==(const PrinterFactors&) const = default;
};

/// A printer that is further off has a fault that no factor mends, or its sheet was fitted to the paper.
inline constexpr double smallestFactor = 0.9;
inline constexpr double largestFactor = 1.1;

/// The factor of a printer on whose sheet `expected` measures `measured`, in any unit.
constexpr double FactorOf(double expected, double measured)
{
    return expected / measured;
}

/// Why a measured length cannot be taken, naming it and what is possible; empty if it can. Both lengths are in mm.
std::string LengthProblem(std::string_view direction, std::string_view length, double expected);

/// The file in which the factors of all printers stand; nothing if `preferencesFolder` is nothing.
FolderItem PrinterFactorsFile(const FolderItem& preferencesFolder);

/// The factors of a printer: those of the last line of the file that has it, 1 if there is none. A line that is no
/// pair of factors from smallestFactor to largestFactor and a name is passed over.
PrinterFactors ReadPrinterFactors(const FolderItem& file, std::string_view printer);

/// Replaces the printer's factors in the file, or takes them out of it if both are 1. What else the file holds
/// stays, but for lines that are passed over in reading. Factors out of range are refused as an invalid argument. A
/// file that cannot be read stays as it is, and the reason is returned.
std::error_code WritePrinterFactors(const FolderItem& file, std::string_view printer, PrinterFactors factors);

}  // namespace linealis
