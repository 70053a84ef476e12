#pragma once

#include "exchange/Outline.h"

#include <vector>

namespace linealis {

/// Converts coordinates of a content to pixels of a picture, counted from its upper left corner downward.
struct PixelScale {
    double pageHeight;  ///< points
    double pixelsPerPoint;
    double left = 0.0;  ///< the position of the upper left corner of the paper, in pixels
    double top = 0.0;
    double x = 1.0;  ///< the scale of the content
    double y = 1.0;

    /// Returns the position in pixels.
    Point At(const Point& point) const
    {
        return {left + point.x * x * pixelsPerPoint, top + (pageHeight - point.y * y) * pixelsPerPoint};
    }
    /// Returns the position in the unit of FreeType.
    FT_Vector Place(const Point& point) const
    {
        const Point pixels = At(point);
        return {Position(pixels.x), Position(pixels.y)};
    }
    /// Returns the number of pixels per unit of the content: the geometric mean of both directions.
    double PixelsPerUnit() const { return std::sqrt(std::abs(x * y)) * pixelsPerPoint; }
};

/// Returns shapes that together cover a stroke: one for each line, curve, and corner, and one for each round or
/// square end. They overlap. A single line is a single shape. `width` is in units of the content and replaces that
/// of the pen. Ignores dashes.
std::vector<Outline> ShapesOfStroke(PagePath path, const PagePen& pen, double width, const PixelScale& scale,
                                    FT_Library library);

}  // namespace linealis
