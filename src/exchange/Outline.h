#pragma once

#include "pdf/PageContent.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <vector>

namespace linealis {

/// FreeType counts in 1/64 of a pixel (26.6 fixed point).
inline constexpr double partsOfPixel = 64.0;

/// The most points in an outline. FreeType counts them in signed 16-bit integers.
inline constexpr std::size_t mostPoints = 32000;

/// The largest coordinates, in pixels, that the rasterizer and the stroker of FreeType handle without overflow.
/// Both are far outside every picture.
inline constexpr double farthestPainted = 1e5;
inline constexpr double farthestStroked = 1e7;

/// Converts pixels to the unit of FreeType. Clamps to `farthest` pixels on both sides of zero.
inline FT_Pos Position(double pixels, double farthest = farthestPainted)
{
    return static_cast<FT_Pos>(std::lround(std::clamp(pixels, -farthest, farthest) * partsOfPixel));
}

/// A closed shape in the representation of FreeType.
struct Outline {
    std::vector<FT_Vector> points;
    std::vector<char> tags;
    std::vector<short> contours;  ///< the index of the last point of each contour

    void Add(const FT_Vector& point, char tag)
    {
        points.push_back(point);
        tags.push_back(tag);
    }
    /// Ends the current contour. Does nothing if it has no points.
    void EndContour()
    {
        if (!points.empty() && (contours.empty() || contours.back() + 1 < static_cast<int>(points.size()))) {
            contours.push_back(static_cast<short>(points.size() - 1));
        }
    }

    /// Appends a path as contours. `place` converts each point of the path to a vector.
    template <typename Place>
    void Add(PagePath path, Place place)
    {
        for (const PathSegment& segment : path) {
            if (segment.operation == PageOperator::Move) {
                EndContour();
            } else if (segment.operation == PageOperator::Curve) {
                Add(place(segment.control1), FT_CURVE_TAG_CUBIC);
                Add(place(segment.control2), FT_CURVE_TAG_CUBIC);
            }
            Add(place(segment.to), FT_CURVE_TAG_ON);
        }
        EndContour();
    }

    /// Returns a FreeType outline that points into this object, valid until the next change.
    FT_Outline InFreeType()
    {
        FT_Outline outline{};
        outline.n_contours = static_cast<short>(contours.size());
        outline.n_points = static_cast<short>(points.size());
        outline.points = points.data();
        outline.tags = tags.data();
        outline.contours = contours.data();
        return outline;
    }
};

}  // namespace linealis
