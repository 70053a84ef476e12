#pragma once

#include "pdf/PageContent.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <vector>

namespace linealis {

/// FreeType's unit of length is this part of a pixel.
inline constexpr double partsOfPixel = 64.0;

/// FreeType counts the points of an outline in 16 bits.
inline constexpr std::size_t mostPoints = 32000;

/// Where FreeType's rasterizer still counts right, far outside every picture, and where its stroker does. Pixels.
inline constexpr double farthestPainted = 1e5;
inline constexpr double farthestStroked = 1e7;

/// In FreeType's unit.
inline FT_Pos Position(double pixels, double farthest = farthestPainted)
{
    return static_cast<FT_Pos>(std::lround(std::clamp(pixels, -farthest, farthest) * partsOfPixel));
}

/// A closed figure in FreeType's form.
struct Outline {
    std::vector<FT_Vector> points;
    std::vector<char> tags;
    std::vector<short> contours;  ///< the last point of each

    void Add(const FT_Vector& point, char tag)
    {
        points.push_back(point);
        tags.push_back(tag);
    }
    void EndContour()
    {
        if (!points.empty() && (contours.empty() || contours.back() + 1 < static_cast<int>(points.size()))) {
            contours.push_back(static_cast<short>(points.size() - 1));
        }
    }

    /// `place` gives the vector for each point.
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

    /// Points into this.
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
