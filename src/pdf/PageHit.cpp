#include "pdf/PageHit.h"

#include "pdf/PageContent.h"
#include "pdf/StandardFonts.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace linealis {

namespace {

// How far a text reaches below and above its base line, as shares of its size.
constexpr double textBelow = -0.2, textAbove = 0.8;

double WidthOf(const PageText& text)
{
    return ShownWidth(StandardFontOf(text.font), text.bytes) * text.size;
}

double DistanceToLine(const Point& point, const Point& from, const Point& to)
{
    const double dx = to.x - from.x, dy = to.y - from.y, squaredLength = dx * dx + dy * dy;
    const double along =
        squaredLength == 0.0 ? 0.0 : ((point.x - from.x) * dx + (point.y - from.y) * dy) / squaredLength;
    const double share = std::clamp(along, 0.0, 1.0);
    return std::hypot(point.x - from.x - share * dx, point.y - from.y - share * dy);
}

/// A point of a cubic Bezier curve; `t` runs from 0 to 1.
Point OnCurve(const Point& from, const PathSegment& curve, double t)
{
    const double s = 1.0 - t;
    const std::array weights = {s * s * s, 3.0 * s * s * t, 3.0 * s * t * t, t * t * t};
    return {weights[0] * from.x + weights[1] * curve.control1.x + weights[2] * curve.control2.x +
                weights[3] * curve.to.x,
            weights[0] * from.y + weights[1] * curve.control1.y + weights[2] * curve.control2.y +
                weights[3] * curve.to.y};
}

class HitSink final : public PageSink {
public:
    HitSink(const Point& thePoint, double theReach) : point(thePoint), nearest(theReach) {}

    bool Scale(double sx, double sy) override
    {
        xScale = sx;
        yScale = sy;
        return true;
    }

    bool Stroke(PagePath path, const PagePen& pen) override
    {
        Take(DistanceTo(path) - pen.width * std::max(std::abs(xScale), std::abs(yScale)) / 2.0);
        return true;
    }

    bool Fill(PagePath path, const PageColor& /*color*/) override
    {
        Take(DistanceTo(path));
        return true;
    }

    bool FillAndStroke(PagePath path, const PageColor& /*color*/, const PagePen& pen) override
    {
        return Stroke(path, pen);
    }

    bool Text(const PageText& text) override
    {
        const auto& [a, b, c, d, e, f] = text.matrix;
        const double determinant = a * d - b * c;
        const double x = point.x / xScale - e, y = point.y / yScale - f;
        const double along = (d * x - c * y) / determinant, up = (a * y - b * x) / determinant;
        if (along >= 0.0 && along <= WidthOf(text) && up >= textBelow * text.size && up <= textAbove * text.size) {
            nearest = -1.0;  // no line is nearer
            found = role;
        }
        return true;
    }

    void BeginRole(Role next) override { role = next; }

    Role Found() const { return found; }

private:
    Point Scaled(const Point& unscaled) const { return {unscaled.x * xScale, unscaled.y * yScale}; }

    double DistanceTo(PagePath path) const
    {
        constexpr int linesOfACurve = 16;
        double distance = nearest + 1.0;
        Point from{};
        for (const PathSegment& segment : path) {
            if (segment.operation == PageOperator::Line) {
                distance = std::min(distance, DistanceToLine(point, Scaled(from), Scaled(segment.to)));
            }
            for (int i = 0; segment.operation == PageOperator::Curve && i < linesOfACurve; ++i) {
                const Point first = OnCurve(from, segment, static_cast<double>(i) / linesOfACurve);
                const Point second = OnCurve(from, segment, static_cast<double>(i + 1) / linesOfACurve);
                distance = std::min(distance, DistanceToLine(point, Scaled(first), Scaled(second)));
            }
            from = segment.to;
        }
        return distance;
    }

    /// What is drawn later lies above.
    void Take(double distance)
    {
        if (role != "background" && std::max(distance, 0.0) <= nearest) {
            nearest = std::max(distance, 0.0);
            found = role;
        }
    }

    Point point;
    double nearest;  ///< points; of what was found, or how far to look
    double xScale = 1.0;
    double yScale = 1.0;
    Role role;
    Role found;
};

/// Collects the texts that have one of the roles.
class TextSink final : public PageSink {
public:
    explicit TextSink(const RoleSet& theRoles) : roles(theRoles) {}

    bool Scale(double sx, double sy) override
    {
        xScale = sx;
        yScale = sy;
        return true;
    }
    bool Stroke(PagePath /*path*/, const PagePen& /*pen*/) override { return true; }
    bool Fill(PagePath /*path*/, const PageColor& /*color*/) override { return true; }
    bool FillAndStroke(PagePath /*path*/, const PageColor& /*color*/, const PagePen& /*pen*/) override
    {
        return true;
    }
    bool Text(const PageText& text) override
    {
        if (!Includes(roles, role)) {
            return true;
        }
        const auto& [a, b, c, d, e, f] = text.matrix;
        TextArea placed{role, {e, f}, {e * xScale, f * yScale}, {e * xScale, f * yScale}};
        for (const double along : {0.0, WidthOf(text)}) {
            for (const double up : {textBelow * text.size, textAbove * text.size}) {
                const Point corner{(a * along + c * up + e) * xScale, (b * along + d * up + f) * yScale};
                placed.lowerLeft = {std::min(placed.lowerLeft.x, corner.x), std::min(placed.lowerLeft.y, corner.y)};
                placed.upperRight = {std::max(placed.upperRight.x, corner.x),
                                     std::max(placed.upperRight.y, corner.y)};
            }
        }
        texts.push_back(placed);
        return true;
    }
    void BeginRole(Role next) override { role = next; }

    std::vector<TextArea> texts;

private:
    RoleSet roles;
    Role role;
    double xScale = 1.0;
    double yScale = 1.0;
};

}  // namespace

std::vector<TextArea> TextAreas(std::string_view content, std::span<const RoleRange> pageRoles,
                                const RoleSet& roles)
{
    TextSink sink(roles);
    ReadPage(content, pageRoles, sink);
    return sink.texts;
}

Role RoleAt(std::string_view content, std::span<const RoleRange> roles, const Point& point, double reach,
            Turns& turns)
{
    HitSink sink(point, reach);
    ReadPage(content, roles, sink, &turns);
    return sink.Found();
}

}  // namespace linealis
