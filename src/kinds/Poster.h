#pragma once

#include "pdf/Geometry.h"
#include "pipeline/page/PageFrame.h"

#include <cstddef>
#include <string>
#include <vector>

namespace linealis {

/// The strip at each edge of a sheet that a poster leaves blank, in points: 6 mm, which usual printers cannot
/// print.
inline constexpr double posterMargin = 17.0;

/// The most that two neighboring sheets share, in points: 4 inches.
inline constexpr double mostOverlap = 288.0;

/// The largest number of sheets of a poster.
inline constexpr std::size_t mostPosterSheets = 1000;

/// A page on several smaller sheets that are glued together.
struct Poster {
    PaperSize page;
    PaperSize sheet;  ///< turned as it is printed
    double overlap;   ///< points that two neighboring sheets share

    /// The number of sheets across, and down; 0 if the overlap leaves no room.
    std::size_t Columns() const;
    std::size_t Rows() const;
    /// Returns the name of a sheet, such as "B2" for the second column of the second row.
    static std::string NameOf(std::size_t column, std::size_t row);
    /// Returns the place of the page's lower left corner on a sheet. Rows count from the top.
    Point CornerOf(std::size_t column, std::size_t row) const;
    /// Returns the content around the page on a sheet: ticks where the sheet is cut or the next is glued on, and
    /// its name.
    std::string Marks(std::size_t column, std::size_t row) const;
};

/// Returns the poster on sheets of that paper, upright or across, whichever takes fewer.
Poster PosterOn(const PaperSize& paper, const PaperSize& page, double overlap);

}  // namespace linealis
