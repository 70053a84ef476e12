#include "pdf/MyPDFGenerator.h"

#include <algorithm>
#include <cmath>

namespace linealis {

namespace {

enum Region : int { inside = 0, above = 1, below = 2, right = 4, left = 8 };

/// More cuts than any end needs. Two cuts bring an end onto an edge; rounding may need a few more at a corner.
constexpr int mostCuts = 32;

bool IsFinite(const Point& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

}  // namespace

int MyPDFGenerator::FindRegion(double x, double y) const
{
    int region = inside;
    if (y > clipMaxY) {
        region += above;
    } else if (y < clipMinY) {
        region += below;
    }
    if (x > clipMaxX) {
        region += Region::right;
    } else if (x < clipMinX) {
        region += Region::left;
    }
    return region;
}

// Multiply before dividing, and always start from the first end: existing pages depend on the last bit.
Point MyPDFGenerator::CutLine(const Line& line, int region) const
{
    const auto [x1, y1] = line[0];
    const auto [x2, y2] = line[1];
    if ((region & above) != 0) {
        return {x1 + (x2 - x1) * (clipMaxY - y1) / (y2 - y1), clipMaxY};
    }
    if ((region & below) != 0) {
        return {x1 + (x2 - x1) * (clipMinY - y1) / (y2 - y1), clipMinY};
    }
    if ((region & Region::right) != 0) {
        return {clipMaxX, y1 + (y2 - y1) * (clipMaxX - x1) / (x2 - x1)};
    }
    return {clipMinX, y1 + (y2 - y1) * (clipMinX - x1) / (x2 - x1)};
}

bool MyPDFGenerator::BringInside(Line& line, std::size_t end, int region, int otherRegion) const
{
    for (int cuts = 0; region != inside; ++cuts) {
        if ((region & otherRegion) != 0) {
            return false;
        }
        if (cuts == mostCuts) {
            // At a corner, rounding can move the end back and forth between the outsides of two edges forever. The
            // line may still cross the whole rectangle, so it is not dropped: it ends in the corner.
            line[end] = {std::min(std::max(line[end].x, clipMinX), clipMaxX),
                         std::min(std::max(line[end].y, clipMinY), clipMaxY)};
            return IsFinite(line[end]);
        }
        line[end] = CutLine(line, region);
        region = FindRegion(line[end].x, line[end].y);
    }
    return true;
}

// Cohen-Sutherland line clipping.
void MyPDFGenerator::ClipLine(double x1, double y1, double x2, double y2, double left, double bottom, double width,
                              double height)
{
    clipMinX = left;
    clipMinY = bottom;
    clipMaxX = left + width;
    clipMaxY = bottom + height;
    const int region1 = FindRegion(x1, y1);
    const int region2 = FindRegion(x2, y2);
    if ((region1 | region2) == inside) {  // the most common case
        StrokeLine(x1, y1, x2, y2);
        return;
    }
    Line line = {{{x1, y1}, {x2, y2}}};
    if (BringInside(line, 0, region1, region2) && BringInside(line, 1, region2, inside)) {
        StrokeLine(line[0].x, line[0].y, line[1].x, line[1].y);
    }
}

}  // namespace linealis
