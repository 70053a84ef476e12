#pragma once

#include "pipeline/page/PageFrame.h"

#include <string>
#include <string_view>

namespace linealis {

// Descriptions of pages in words. Lengths are given in points and described in the unit of the form, rounded to
// 0.01 mm or 0.001 in.

/// Returns a length: "5 mm", "0.25 in".
std::string LengthWords(double points, const PageSetup& page);

/// Returns width by height: "5 by 4 mm", or "5 mm" if both are equal.
std::string SizeWords(double width, double height, const PageSetup& page);

/// Returns a count: "27 lines", "1 line", "no lines". `count` is a whole number and `one` the singular noun.
std::string CountWords(double count, std::string_view one);

/// Returns a count in two directions: "37 by 53 cells", or "no cells" if either count is below 1.
std::string CountWords(double across, double up, std::string_view one);

/// Returns the name of the paper, or its size if it has no name: "A4", "Letter", "210 by 200 mm".
std::string PaperWords(const PageSetup& page);

/// Returns "portrait" or "landscape". A square is portrait.
std::string_view OrientationWords(const PageSetup& page);

}  // namespace linealis
