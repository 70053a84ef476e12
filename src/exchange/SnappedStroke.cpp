#include "exchange/SnappedStroke.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace linealis {

namespace {

/// The pixels across a line: first and one past the last.
struct Band {
    double begin;
    double end;
};

/// Returns the whole pixels that a line of that width, in pixels, takes around its middle.
Band BandAround(double middle, double width)
{
    const double count = std::max(1.0, std::round(width));
    const double begin = std::round(middle - count / 2.0);
    return {begin, begin + count};
}

bool IsDot(PagePath path)
{
    return path.size() == 2 && path[0].to.x == path[1].to.x && path[0].to.y == path[1].to.y;
}

Outline Rectangle(const Band& across, const Band& down)
{
    // Counterclockwise on the page, as FreeType rounds the coverage of the other direction down.
    Outline outline;
    outline.Add({Position(across.begin), Position(down.begin)}, FT_CURVE_TAG_ON);
    outline.Add({Position(across.begin), Position(down.end)}, FT_CURVE_TAG_ON);
    outline.Add({Position(across.end), Position(down.end)}, FT_CURVE_TAG_ON);
    outline.Add({Position(across.end), Position(down.begin)}, FT_CURVE_TAG_ON);
    outline.EndContour();
    return outline;
}

/// Snaps the lines of one path.
class Snapper {
public:
    Snapper(PagePath thePath, const PagePen& thePen, const PixelScale& theScale)
        : path(thePath), pen(thePen), scale(theScale)
    {}

    /// Returns the rectangle of the line from the point before `i` to point `i` of the path.
    Outline Line(std::size_t i) const
    {
        const Point from = scale.At(path[i - 1].to), to = scale.At(path[i].to);
        const bool isUpright = path[i - 1].to.x == path[i].to.x;
        const Band across = isUpright ? BandAround(from.x, WidthAcross(true)) : Along(from.x, to.x, i, false);
        const Band down = isUpright ? Along(from.y, to.y, i, true) : BandAround(from.y, WidthAcross(false));
        return Rectangle(across, down);
    }

    /// The width, in pixels, of an upright line, or of a level one.
    double WidthAcross(bool isUpright) const
    {
        return pen.width * std::abs(isUpright ? scale.x : scale.y) * scale.pixelsPerPoint;
    }

private:
    /// Returns the pixels along a line, at least one. Where another line of the path joins it, it ends at the far
    /// side of that.
    Band Along(double from, double to, std::size_t i, bool isUpright) const
    {
        const double out = pen.cap == 0 ? 0.0 : WidthAcross(isUpright) / 2.0;
        const double sign = from <= to ? 1.0 : -1.0;
        const auto ends = [&](double end, bool isJoined, double outwards) {
            const double free = std::round(end + outwards * out);
            return isJoined ? BandAround(end, WidthAcross(!isUpright)) : Band{free, free};
        };
        const Band first = ends(from, IsJoined(i - 1), -sign), last = ends(to, IsJoined(i), sign);
        const Band along{std::min(first.begin, last.begin), std::max(first.end, last.end)};
        return {along.begin, std::max(along.end, along.begin + 1.0)};
    }

    /// Whether two lines of the path meet at that point, also where it closes.
    bool IsJoined(std::size_t at) const
    {
        const auto isLine = [&](std::size_t i) {
            return i < path.size() && path[i].operation == PageOperator::Line;
        };
        const bool isInside = isLine(at) && isLine(at + 1);
        const Point &first = path.front().to, &last = path.back().to;
        const bool isEnd = at == 0 || at + 1 == path.size();
        return isInside || (isEnd && path.size() > 3 && first.x == last.x && first.y == last.y);
    }

    PagePath path;
    const PagePen& pen;
    const PixelScale& scale;
};

/// Returns the shapes of a dot whose middle is moved so that it lies equally on its pixels as all others.
SnappedStroke SnappedDot(PagePath path, const PagePen& pen, const PixelScale& scale, FT_Library library)
{
    const double width = pen.width * scale.PixelsPerUnit();
    const Point middle = scale.At(path[0].to);
    const Band across = BandAround(middle.x, width), down = BandAround(middle.y, width);
    if (width < 1.0) {
        return {{Rectangle(across, down)}, std::clamp(width * width, faintestStroke, 1.0)};
    }
    PixelScale moved = scale;
    moved.left += (across.begin + across.end) / 2.0 - middle.x;
    moved.top += (down.begin + down.end) / 2.0 - middle.y;
    return {ShapesOfStroke(path, pen, pen.width, moved, library), 1.0};
}

}  // namespace

SnappedStroke Snapped(PagePath path, const PagePen& pen, const PixelScale& scale, FT_Library library)
{
    constexpr int buttCap = 0;
    if (IsDot(path)) {
        return pen.cap == buttCap ? SnappedStroke{} : SnappedDot(path, pen, scale, library);
    }
    if (!IsAlongAxes(path)) {
        return {};
    }
    const Snapper snapper(path, pen, scale);
    SnappedStroke snapped;
    for (std::size_t i = 1; i < path.size(); ++i) {
        if (path[i].operation == PageOperator::Line) {
            snapped.shapes.push_back(snapper.Line(i));
        }
    }
    // A pen of width 0 is the thinnest line of the device: a full pixel.
    const double width = std::min(snapper.WidthAcross(true), snapper.WidthAcross(false));
    snapped.opacity = pen.width <= 0.0 ? 1.0 : std::clamp(width, faintestStroke, 1.0);
    return snapped;
}

}  // namespace linealis
