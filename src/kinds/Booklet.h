#pragma once

#include "kinds/PadSheet.h"

#include <cstddef>
#include <vector>

namespace linealis {

/// The most that a sheet of a booklet is moved against the one around it, in points.
inline constexpr double mostCreep = 14.4;

/// The layout of a booklet: sheets with two pages on each side, put into each other, folded, and stapled in the
/// fold (saddle stitch). Pages without a place are blank: a booklet has a multiple of four.
struct Booklet {
    PadLayout pad;       ///< its pages, stamps, and the size of a page; `up` does not count
    double creep = 0.0;  ///< points by which a sheet sticks out of the one around it, as thick as the paper

    std::size_t Sheets() const { return (pad.pages + 3) / 4; }
    /// Returns the size of a side: two pages beside each other.
    PaperSize Side() const { return {2 * pad.page.width, pad.page.height}; }
    /// Returns the pages on a side, without blank ones. Sheets count from the outermost. Each sheet is moved toward
    /// the fold by the creep of those around it, so that all outer margins are equal after trimming.
    std::vector<NumberedPlace> PlacesOn(std::size_t sheet, bool isFront) const;
};

}  // namespace linealis
