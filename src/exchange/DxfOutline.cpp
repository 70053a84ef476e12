#include "exchange/DxfOutline.h"

#include "pdf/Geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace linealis {

namespace {

/// Points at most this far apart, in millimeters, are the same.
constexpr double samePoint = 0.001;
/// How far a line or an arc may be from the curve that it stands for, in millimeters.
constexpr double largestError = 0.005;

Point Difference(const Point& a, const Point& b)
{
    return {a.x - b.x, a.y - b.y};
}

double Length(const Point& vector)
{
    return std::hypot(vector.x, vector.y);
}

bool IsSamePoint(const Point& a, const Point& b)
{
    return Length(Difference(a, b)) <= samePoint;
}

/// Returns the angle, in radians, by which `a` turns to the left to point as `b` does.
double AngleBetween(const Point& a, const Point& b)
{
    return std::atan2(a.x * b.y - a.y * b.x, a.x * b.x + a.y * b.y);
}

struct Bezier {
    Point from, control1, control2, to;

    Point At(double t) const
    {
        const double s = 1.0 - t;
        const auto mixed = [&](double a, double b, double c, double d) {
            return s * s * s * a + 3.0 * s * s * t * b + 3.0 * s * t * t * c + t * t * t * d;
        };
        return {mixed(from.x, control1.x, control2.x, to.x), mixed(from.y, control1.y, control2.y, to.y)};
    }
};

/// Returns the bulge of the arc that the curve is, or nothing if it is none. A curve stands for at most a quarter
/// of a circle: for more, it would be too far from its arc.
std::optional<double> BulgeOf(const Bezier& curve)
{
    constexpr double evenly = 0.001;  // of angles in radians, and of the chord
    constexpr double largestAngle = std::numbers::pi / 2.0 + evenly;
    const Point first = Difference(curve.control1, curve.from), last = Difference(curve.to, curve.control2),
                chord = Difference(curve.to, curve.from);
    const double length = Length(chord), half = AngleBetween(first, chord),
                 angle = half + AngleBetween(chord, last);
    if (!(length > samePoint) || std::abs(angle) > largestAngle || std::abs(angle - 2.0 * half) > evenly) {
        return std::nullopt;
    }
    const double bulge = std::tan(angle / 4.0);
    const Point middle = curve.At(0.5);
    const Point ofArc = {(curve.from.x + curve.to.x + bulge * chord.y) / 2.0,
                         (curve.from.y + curve.to.y - bulge * chord.x) / 2.0};
    const bool isArc = Length(Difference(middle, ofArc)) <= std::max(samePoint, length * evenly / 2.0) &&
                       std::abs(Length(first) - Length(last)) <= std::max(samePoint, length * evenly);
    return isArc ? std::optional(bulge) : std::nullopt;
}

/// Adds lines that follow the curve.
void AddLines(const Bezier& curve, std::vector<DxfCorner>& corners)
{
    constexpr double mostLines = 1000.0;
    const auto bend = [](const Point& a, const Point& b, const Point& c) {
        return std::hypot(a.x - 2.0 * b.x + c.x, a.y - 2.0 * b.y + c.y);
    };
    const double most =
        std::max(bend(curve.from, curve.control1, curve.control2), bend(curve.control1, curve.control2, curve.to));
    // A line is at most an eighth of the second derivative, which is 6 times the bend, from its part of the curve.
    const double lines = std::clamp(std::ceil(std::sqrt(6.0 / 8.0 * most / largestError)), 1.0, mostLines);
    for (double i = 1.0; i < lines; ++i) {
        corners.push_back({curve.At(i / lines)});
    }
    corners.push_back({curve.to});
}

}  // namespace

std::vector<DxfOutline> OutlinesOf(PagePath path, double x, double y)
{
    const auto place = [&](const Point& point) { return Point{point.x * x, point.y * y}; };
    std::vector<DxfOutline> outlines;
    for (const PathSegment& segment : path) {
        const Point to = place(segment.to);
        if (segment.operation == PageOperator::Move) {
            if (outlines.empty() || !IsSamePoint(outlines.back().corners.back().at, to)) {
                outlines.push_back({{{to}}});
            }
            continue;
        }
        std::vector<DxfCorner>& corners = outlines.back().corners;
        const Bezier curve{corners.back().at, place(segment.control1), place(segment.control2), to};
        if (segment.operation == PageOperator::Line) {
            corners.push_back({to});
        } else if (const std::optional<double> bulge = BulgeOf(curve)) {
            corners.back().bulge = *bulge;
            corners.push_back({to});
        } else {
            AddLines(curve, corners);
        }
    }
    for (DxfOutline& outline : outlines) {
        outline.isClosed =
            outline.corners.size() > 2 && IsSamePoint(outline.corners.front().at, outline.corners.back().at);
        if (outline.isClosed) {
            outline.corners.pop_back();
        }
    }
    return outlines;
}

std::optional<DxfCircle> CircleOf(const DxfOutline& outline)
{
    constexpr double sameAngle = 0.001;  // radians
    const std::vector<DxfCorner>& corners = outline.corners;
    const double bulge = corners.front().bulge, angle = 4.0 * std::atan(bulge),
                 count = static_cast<double>(corners.size());
    const bool isEven = std::all_of(corners.begin(), corners.end(), [&](const DxfCorner& corner) {
        return std::abs(4.0 * std::atan(corner.bulge) - angle) <= sameAngle;
    });
    if (!outline.isClosed || !isEven || std::abs(std::abs(angle) * count - 2.0 * std::numbers::pi) > sameAngle) {
        return std::nullopt;
    }
    Point center{0.0, 0.0};
    for (const DxfCorner& corner : corners) {
        center = {center.x + corner.at.x / count, center.y + corner.at.y / count};
    }
    return DxfCircle{center, Length(Difference(corners.front().at, center))};
}

}  // namespace linealis
