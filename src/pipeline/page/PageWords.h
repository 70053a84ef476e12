#pragma once

#include "pipeline/page/PageFrame.h"
#include "text/Message.h"

namespace linealis {

// Descriptions of pages in words. Lengths are given in points and described in the unit of the form, rounded to
// 0.01 mm or 0.001 in.

/// The words for a count of what a page consists of. %1 is the count or, in two directions, the count across, and
/// %2 the count up.
struct Noun {
    Plural some;
    Phrase none;
};

inline constexpr Noun ruledLines{Plural("%1 line", "%1 lines"), Phrase("no lines")};
inline constexpr Noun gridCells{Plural("%1 by %2 cell", "%1 by %2 cells"), Phrase("no cells")};

/// Returns a length: "5 mm", "0.25 in".
Message LengthWords(double points, const PageSetup& page);

/// Returns width by height: "5 by 4 mm", or "5 mm" if both are equal.
Message SizeWords(double width, double height, const PageSetup& page);

/// Returns a count in one direction, a whole number: "27 lines", "1 line", "no lines".
Message CountWords(double count, const Noun& noun);

/// Returns a count in two directions: "37 by 53 cells", or "no cells" if either count is below 1.
Message CountWords(double across, double up, const Noun& noun);

/// Returns the name of the paper, or its size if it has no name: "A4", "Letter", "210 by 200 mm".
Message PaperWords(const PageSetup& page);

/// Returns "portrait" or "landscape". A square is portrait.
Message OrientationWords(const PageSetup& page);

}  // namespace linealis
