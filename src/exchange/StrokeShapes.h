#pragma once

#include "exchange/Outline.h"

#include <vector>

namespace linealis {

/// From the system of a content to the pixels of a picture, which count from its upper left corner downwards.
struct PixelScale {
    double pageHeight;  ///< points
    double pixelsPerPoint;
    double x = 1.0;  ///< of the content
    double y = 1.0;

    Point At(const Point& point) const
    {
        return {point.x * x * pixelsPerPoint, (pageHeight - point.y * y) * pixelsPerPoint};
    }
    /// The same in FreeType's unit.
    FT_Vector Place(const Point& point) const
    {
        const Point pixels = At(point);
        return {Position(pixels.x), Position(pixels.y)};
    }
    /// The pixels of a unit, the mean of both directions.
    double PixelsPerUnit() const { return std::sqrt(std::abs(x * y)) * pixelsPerPoint; }
};

/// The shapes that cover a stroke together. They overlap: each line and curve is one, and so is each corner between
/// two of them, and each end that is round or square. A line alone is one shape. `width` replaces that of the pen.
std::vector<Outline> ShapesOfStroke(PagePath path, const PagePen& pen, double width, const PixelScale& scale,
                                    FT_Library library);

}  // namespace linealis
