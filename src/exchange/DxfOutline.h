#pragma once

#include "pdf/PageContent.h"

#include <optional>
#include <vector>

namespace linealis {

/// A corner of a DxfOutline. From it to the next corner leads a line or, if `bulge` is not 0, an arc of a circle:
/// the bulge is the tangent of a quarter of the angle of the arc, positive if it turns to the left.
struct DxfCorner {
    Point at;
    double bulge = 0.0;
};

/// A part of a path as the entities of a DXF file have it, in millimeters.
struct DxfOutline {
    std::vector<DxfCorner> corners;
    bool isClosed = false;  ///< whether the last corner leads to the first one
};

struct DxfCircle {
    Point center;
    double radius;
};

/// Returns the connected parts of a path. A part that begins where the one before ends continues it. `x` and `y`
/// are millimeters per unit of the path.
std::vector<DxfOutline> OutlinesOf(PagePath path, double x, double y);

/// Returns the circle if the outline is a whole one.
std::optional<DxfCircle> CircleOf(const DxfOutline& outline);

}  // namespace linealis
