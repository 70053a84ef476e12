#include "desktop/page/PageHandle.h"

#include <algorithm>
#include <cmath>

namespace linealis::desktop {

namespace {

/// How far a point is from an upright or level line, in pixels.
double Distance(const QLineF& line, QPointF point)
{
    const QRectF box = QRectF(line.p1(), line.p2()).normalized();
    return std::hypot(std::max({box.left() - point.x(), 0.0, point.x() - box.right()}),
                      std::max({box.top() - point.y(), 0.0, point.y() - box.bottom()}));
}

}  // namespace

std::optional<Side> SideOf(const std::optional<PageHandle>& handle)
{
    const Side* const side = handle ? std::get_if<Side>(&*handle) : nullptr;
    return side == nullptr ? std::nullopt : std::optional(*side);
}

QCursor CursorFor(const std::optional<PageHandle>& handle)
{
    const std::optional<Side> side = SideOf(handle);
    if (!side) {
        return handle ? Qt::SizeAllCursor : Qt::OpenHandCursor;
    }
    return *side == Side::Top || *side == Side::Bottom ? Qt::SizeVerCursor : Qt::SizeHorCursor;
}

QLineF EdgeOf(const QRectF& inside, Side side)
{
    switch (side) {
    case Side::Top:
        return {inside.topLeft(), inside.topRight()};
    case Side::Bottom:
        return {inside.bottomLeft(), inside.bottomRight()};
    case Side::Left:
        return {inside.topLeft(), inside.bottomLeft()};
    case Side::Right:
        break;
    }
    return {inside.topRight(), inside.bottomRight()};
}

QRectF BandOf(const QRectF& sheet, const QRectF& inside, Side side)
{
    QRectF band = sheet;
    switch (side) {
    case Side::Top:
        band.setBottom(inside.top());
        break;
    case Side::Bottom:
        band.setTop(inside.bottom());
        break;
    case Side::Left:
        band.setRight(inside.left());
        break;
    case Side::Right:
        band.setLeft(inside.right());
        break;
    }
    return band.isValid() ? band & sheet : QRectF();
}

std::optional<Side> NearestEdge(const QRectF& inside, QPointF place, double reach)
{
    std::optional<Side> nearest;
    double least = reach;
    for (const Side side : {Side::Top, Side::Bottom, Side::Left, Side::Right}) {
        if (const double distance = Distance(EdgeOf(inside, side), place); inside.isValid() && distance <= least) {
            least = distance;
            nearest = side;
        }
    }
    return nearest;
}

}  // namespace linealis::desktop
