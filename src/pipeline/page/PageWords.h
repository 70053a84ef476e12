#pragma once

#include "pipeline/page/PageFrame.h"

#include <string>
#include <string_view>

namespace linealis {

// What stands on a page, in words. Lengths come in points and are said in the unit of the form, rounded to 0.01 mm
// or 0.001 in.

/// "5 mm", "0.25 in".
std::string LengthWords(double points, const PageSetup& page);

/// Width by height: "5 mm" if both are the same, otherwise "5 by 4 mm".
std::string SizeWords(double width, double height, const PageSetup& page);

/// "27 lines", "1 line", "no lines". `count` is whole, `one` the word for one.
std::string CountWords(double count, std::string_view one);

/// "37 by 53 cells"; "no cells" if there is none either way.
std::string CountWords(double across, double up, std::string_view one);

/// The paper: "A4", "Letter", "210 by 200 mm".
std::string PaperWords(const PageSetup& page);

/// "portrait" or "landscape".
std::string_view OrientationWords(const PageSetup& page);

}  // namespace linealis
