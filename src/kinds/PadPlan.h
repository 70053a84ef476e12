#pragma once

#include "kinds/Booklet.h"
#include "kinds/PadSheet.h"
#include "kinds/Poster.h"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace linealis {

/// A page on a side of a sheet, with the position of its lower left corner in points.
struct PlacedPage {
    std::optional<std::size_t> front;  ///< which of the different front pages, from 0; none: the page of the backs
    Point corner;
};

/// A side of a sheet.
struct PadSide {
    PaperSize size;
    std::vector<PlacedPage> pages;  ///< cut off at their edges
    std::string marks;              ///< page content on top of the pages
    double margin = 0.0;            ///< points from the edges of the side, where pages are cut off too
    bool isPlain = false;           ///< shows a single page, and is as large as that, whatever `size` says
};

/// Which pages a pad has on which side of its sheets: the one description for its file, for printing, and for
/// pictures of it.
struct PadPlan {
    std::variant<PadLayout, Booklet, Poster> sheets;
    std::size_t fronts = 1;  ///< the number of different pages, which take turns on the fronts
    bool hasBacks = false;   ///< whether a pad is printed on both sides; a booklet always is, a poster never
    bool isTable = false;    ///< whether the fronts are in the order of page numbers; otherwise in that of places

    /// Whether sheets are printed on both sides. Then fronts and backs alternate.
    bool IsOnBothSides() const;
    /// Returns the number of sides of one copy, and of its sheets.
    std::size_t Sides() const;
    std::size_t Sheets() const { return Sides() / (IsOnBothSides() ? 2 : 1); }
    PadSide Side(std::size_t number) const;
};

}  // namespace linealis
