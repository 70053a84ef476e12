#include "exchange/StrokeShapes.h"

#include "exchange/FontFaces.h"

#include <array>
#include <initializer_list>
#include <memory>
#include <utility>

#include FT_STROKER_H

namespace linealis {

namespace {

constexpr int butt = 0, round = 1, square = 2;  // line caps as in PDF

/// Clips a line, in place, to the square from -limit to limit in both directions (Liang and Barsky). Returns false
/// if no part of it is inside.
bool ClipLine(Point& from, Point& to, double limit)
{
    const double dx = to.x - from.x, dy = to.y - from.y;
    double enter = 0.0, leave = 1.0;
    const std::array<std::pair<double, double>, 4> sides = {
        {{-dx, from.x + limit}, {dx, limit - from.x}, {-dy, from.y + limit}, {dy, limit - from.y}}};
    for (const auto& [step, room] : sides) {
        if (step == 0.0) {
            if (room < 0.0) {
                return false;
            }
        } else if (step < 0.0) {
            enter = std::max(enter, room / step);
        } else {
            leave = std::min(leave, room / step);
        }
    }
    if (!(enter <= leave)) {
        return false;
    }
    const Point start = from;
    from = {start.x + enter * dx, start.y + enter * dy};
    to = {start.x + leave * dx, start.y + leave * dy};
    return true;
}

/// Returns the direction, of length 1, from a point to the first of `points` that differs from it. Length 0 if none
/// does.
Point Towards(const Point& from, std::initializer_list<Point> points)
{
    for (const Point& point : points) {
        const double dx = point.x - from.x, dy = point.y - from.y, length = std::hypot(dx, dy);
        if (length > 0.0) {
            return {dx / length, dy / length};
        }
    }
    return {0.0, 0.0};
}

/// Returns the point moved by `length` in the direction.
Point Moved(const Point& point, const Point& direction, double length)
{
    return {point.x + direction.x * length, point.y + direction.y * length};
}

struct DestroyStroker {
    void operator()(FT_Stroker stroker) const { FT_Stroker_Done(stroker); }
};

/// Makes the shapes of a stroke, segment by segment.
class ShapeMaker {
public:
    ShapeMaker(double theWidth, int theCap, const PixelScale& theScale, FT_Library theLibrary)
        : width(theWidth), cap(theCap), scale(theScale), library(theLibrary)
    {}

    std::vector<Outline> shapes;

    void AddSegment(const Point& from, const PathSegment& segment, bool isFirst, bool isLast);

private:
    void AddLine(Point from, Point to, int ends);
    void AddStroked(PagePath path);
    void AddCorner(const Point& in, const Point& at, const Point& out);
    void AddEnd(const Point& at, const Point& outwards);

    double width;
    int cap;
    const PixelScale& scale;
    FT_Library library;
    Point lastEnd{};        ///< of the previous segment
    Point lastDirection{};  ///< at the end of the previous segment
};

/// Adds a segment with the corner or end before it, and the end after it. `isFirst` and `isLast` refer to the
/// subpath. If a subpath continues straight from the end of the previous one, a corner covers the seam.
void ShapeMaker::AddSegment(const Point& from, const PathSegment& segment, bool isFirst, bool isLast)
{
    const bool isLine = segment.operation == PageOperator::Line;
    const Point& to = segment.to;
    // At each end, a curve has the direction of the nearest control point that does not coincide with that end.
    const Point start = isLine ? Towards(from, {to}) : Towards(from, {segment.control1, segment.control2, to});
    const Point end = isLine ? start : Towards(to, {segment.control2, segment.control1, from});
    const Point onwards = isLine ? end : Point{-end.x, -end.y};
    if (isLine) {
        AddLine(from, to, isFirst && isLast ? cap : butt);
    } else {
        AddStroked(std::array{PathSegment{PageOperator::Move, from}, segment});
    }
    const double cosine = lastDirection.x * start.x + lastDirection.y * start.y;
    constexpr double straight = 0.999;
    const bool goesOn = lastEnd.x == from.x && lastEnd.y == from.y && cosine > straight;
    if (!isFirst || goesOn) {
        AddCorner(lastDirection, from, start);
    }
    // A single line already has its ends from AddLine.
    if (!isLine || !isFirst || !isLast) {
        if (isFirst) {
            AddEnd(from, {-start.x, -start.y});
        }
        if (isLast) {
            AddEnd(to, onwards);
        }
    }
    lastEnd = to;
    lastDirection = onwards;
}

/// Adds the rectangle of a line with its ends. Computes it in units of the content, where the line is equally wide
/// in all directions. A line without length gives a dot with round ends, a square with square ends, and nothing
/// with butt ends.
void ShapeMaker::AddLine(Point from, Point to, int ends)
{
    constexpr double farOut = 1e6;  // units of the content
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if ((length == 0.0 && ends == butt) || !ClipLine(from, to, farOut)) {
        return;
    }
    // Half of the width, along the line and across it to the left.
    const double half = width / 2.0;
    const Point along =
        length == 0.0 ? Point{half, 0.0} : Point{(to.x - from.x) / length * half, (to.y - from.y) / length * half};
    const Point across{-along.y, along.x};
    // Rounds only the position of the right edge and adds the rounded offset from there. This way, lines of equal
    // width have equally much ink wherever they are.
    const auto at = [&](const Point& end, double forward, double left) {
        const FT_Vector edge = scale.Place({end.x - across.x, end.y - across.y});
        const double dx = forward * along.x + (left + 1.0) * across.x;
        const double dy = forward * along.y + (left + 1.0) * across.y;
        return FT_Vector{edge.x + Position(dx * scale.x * scale.pixelsPerPoint),
                         edge.y - Position(dy * scale.y * scale.pixelsPerPoint)};
    };
    Outline outline;
    // Counterclockwise on the page. In the other direction, FreeType rounds the coverage of each pixel down by one
    // more.
    const auto addEnd = [&](const Point& end, double forward) {  // from the right of the line to its left, or back
        constexpr double circle = 0.5522847498;  // 4/3 (sqrt(2) - 1): a quarter circle as a Bezier curve
        const double out = ends == square ? forward : 0.0;
        outline.Add(at(end, out, -forward), FT_CURVE_TAG_ON);
        if (ends == round) {
            outline.Add(at(end, forward * circle, -forward), FT_CURVE_TAG_CUBIC);
            outline.Add(at(end, forward, -forward * circle), FT_CURVE_TAG_CUBIC);
            outline.Add(at(end, forward, 0.0), FT_CURVE_TAG_ON);
            outline.Add(at(end, forward, forward * circle), FT_CURVE_TAG_CUBIC);
            outline.Add(at(end, forward * circle, forward), FT_CURVE_TAG_CUBIC);
        }
        outline.Add(at(end, out, forward), FT_CURVE_TAG_ON);
    };
    addEnd(to, 1.0);
    addEnd(from, -1.0);
    outline.EndContour();
    shapes.push_back(std::move(outline));
}

/// Adds the shape of a path from the stroker of FreeType, with butt ends and mitered corners. Adds nothing if
/// FreeType rejects it, or if it has too many points.
void ShapeMaker::AddStroked(PagePath path)
{
    // The stroker works in units of the content, with this many steps per 1/64 pixel, so that its rounding is
    // invisible.
    constexpr double fine = 16.0;
    const double unit = scale.pixelsPerPoint * fine;
    // The default miter limit of PDF, in 16.16 fixed point.
    constexpr FT_Fixed miterLimit = 10L << 16U;
    FT_Stroker raw = nullptr;
    if (!Succeeded(FT_Stroker_New(library, &raw))) {
        return;
    }
    const std::unique_ptr<std::remove_pointer_t<FT_Stroker>, DestroyStroker> stroker(raw);
    const auto fineUnits = [unit](double length) { return Position(length * unit, farthestStroked); };
    FT_Stroker_Set(raw, fineUnits(width / 2.0), FT_STROKER_LINECAP_BUTT, FT_STROKER_LINEJOIN_MITER_FIXED,
                   miterLimit);
    Outline line;
    line.Add(path, [&](const Point& point) { return FT_Vector{fineUnits(point.x), fineUnits(point.y)}; });
    FT_Outline given = line.InFreeType();
    FT_UInt points = 0, contours = 0;
    if (!Succeeded(FT_Stroker_ParseOutline(raw, &given, 1)) ||
        !Succeeded(FT_Stroker_GetCounts(raw, &points, &contours)) || points == 0 || points > mostPoints) {
        return;
    }
    Outline made;
    made.points.resize(points);
    made.tags.resize(points);
    made.contours.resize(contours);
    FT_Outline stroked = made.InFreeType();
    stroked.n_points = 0;  // the stroker appends
    stroked.n_contours = 0;
    FT_Stroker_Export(raw, &stroked);
    for (FT_Vector& point : made.points) {
        point = scale.Place({static_cast<double>(point.x) / partsOfPixel / unit,
                             static_cast<double>(point.y) / partsOfPixel / unit});
    }
    FT_Outline_Reverse(&stroked);  // counterclockwise, as in AddLine
    shapes.push_back(std::move(made));
}

/// Adds the corner between two segments, including two pixels of each, so that no pixel at their ends stays partly
/// covered. A line that turns straight back has no corner.
void ShapeMaker::AddCorner(const Point& in, const Point& at, const Point& out)
{
    constexpr double back = -0.9999;
    const bool hasDirections = std::hypot(in.x, in.y) > 0.0 && std::hypot(out.x, out.y) > 0.0;
    if (hasDirections && in.x * out.x + in.y * out.y > back && scale.PixelsPerUnit() > 0.0) {
        constexpr double pixels = 2.0;
        const double reach = pixels / scale.PixelsPerUnit();
        AddStroked(std::array{PathSegment{PageOperator::Move, Moved(at, in, -reach)},
                              PathSegment{PageOperator::Line, at},
                              PathSegment{PageOperator::Line, Moved(at, out, reach)}});
    }
}

/// Adds a round or square end as a very short line with such ends.
void ShapeMaker::AddEnd(const Point& at, const Point& outwards)
{
    if (cap != butt) {
        AddLine(Moved(at, outwards, -width / 1000.0), at, cap);
    }
}

}  // namespace

std::vector<Outline> ShapesOfStroke(PagePath path, const PagePen& pen, double width, const PixelScale& scale,
                                    FT_Library library)
{
    ShapeMaker maker(width, pen.cap, scale, library);
    const auto isMove = [&](std::size_t i) { return i >= path.size() || path[i].operation == PageOperator::Move; };
    for (std::size_t i = 1; i < path.size(); ++i) {
        if (!isMove(i)) {
            maker.AddSegment(path[i - 1].to, path[i], isMove(i - 1), isMove(i + 1));
        }
    }
    return std::move(maker.shapes);
}

}  // namespace linealis
