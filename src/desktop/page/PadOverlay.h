#pragma once

#include "kinds/PadPlan.h"

#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <QStringList>
#include <cstddef>

namespace linealis::desktop {

// What the picture of a pad shows besides its pages.

/// Returns the size of all sheets of a poster glued together, in points. The page is in its upper left corner.
QSizeF AreaOf(const Poster& poster);

/// Paints on the picture of a side of the first sheet, which takes the place: cuts or the fold, and numbers and
/// dates that are large enough to be read. Of a poster, paints all sheets, what they share, and their names.
void PaintOverlay(QPainter& painter, const QRectF& place, const PadPlan& plan, std::size_t side);

/// Returns what to write below a side of the first sheet, in columns of the same width.
QStringList CaptionsOf(const PadPlan& plan, std::size_t side);

}  // namespace linealis::desktop
