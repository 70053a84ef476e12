#pragma once

#include "exchange/StrokeShapes.h"

#include <vector>

namespace linealis {

/// A stroke moved to whole pixels.
struct SnappedStroke {
    std::vector<Outline> shapes;  ///< they may overlap
    double opacity = 1.0;         ///< less than 1 for lines thinner than a pixel
};

/// Moves a stroke of lines along the axes, or a dot, to whole pixels, so that equal lines look equal wherever they
/// are: each is a whole number of pixels wide, at least one, and a thinner line fades instead. Gaps between lines
/// at equal distances differ by at most one pixel. Returns no shapes for a stroke with other lines or curves.
/// Ignores dashes.
SnappedStroke Snapped(PagePath path, const PagePen& pen, const PixelScale& scale, FT_Library library);

}  // namespace linealis
