#pragma once

#include "pdf/PageHit.h"
#include "pipeline/form/PlaceOnPage.h"

#include <QCursor>
#include <QLineF>
#include <QRectF>
#include <optional>
#include <variant>

namespace linealis::desktop {

/// A part of the page that can be dragged: the end of a margin, or a title.
using PageHandle = std::variant<Side, TextArea>;

/// Returns the side whose margin the handle moves, or nothing.
std::optional<Side> SideOf(const std::optional<PageHandle>& handle);

/// Returns the cursor that tells what a press would drag.
QCursor CursorFor(const std::optional<PageHandle>& handle);

/// Returns the line where a margin ends. `inside` is the area inside the margins.
QLineF EdgeOf(const QRectF& inside, Side side);

/// Returns the area of a margin on the sheet.
QRectF BandOf(const QRectF& sheet, const QRectF& inside, Side side);

/// Returns the side whose margin ends nearest to the place, or nothing if none ends within `reach` or if the
/// margins leave no room.
std::optional<Side> NearestEdge(const QRectF& inside, QPointF place, double reach);

}  // namespace linealis::desktop
