#pragma once

#include "pdf/PageContent.h"

#include <QPainter>
#include <QPainterPath>
#include <QSizeF>
#include <atomic>
#include <string_view>

namespace linealis::desktop {

/// Paints the content of a page with QPainter: on the screen, into a picture, or on a printer. Paints exactly what
/// the content says, operator by operator, and does not depend on the kind of paper.
class PagePainter : public PageSink {
public:
    /// How to paint a line that is thinner than a pixel of the device.
    enum class ThinLines {
        AsTheyAre,  ///< unchanged: for a printer, whose pixels are fine enough
        Faded,    ///< one pixel wide and lighter in proportion, so that no line is lost and the page is as dark as
                  ///< in print; a horizontal or vertical line is moved onto a single row or column of pixels
        Widened,  ///< at least two pixels wide: for highlights
    };

    /// The coordinates of `thePainter` must be points from the upper left corner of the page, with y pointing
    /// down. `pageHeight` is in points.
    PagePainter(QPainter& thePainter, double pageHeight, ThinLines thinLines);

    bool Scale(double sx, double sy) override;
    bool Stroke(PagePath path, const PagePen& pen) override;
    bool Fill(PagePath path, const PageColor& color) override;
    bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) override;
    bool Text(const PageText& text) override;

protected:
    /// Whether to go on. Called after each scale, stroke, fill, and text.
    virtual bool GoesOn() { return true; }

private:
    /// Sets the pen of the painter, unless it is set already. `isDot` is for a line of length 0.
    void SetPen(const PagePen& pen, bool isDot);
    void StrokePath(PagePath path, const PagePen& pen);
    void StrokeLine(QPointF from, QPointF to);
    /// Moves all points of the path to the middles of their pixels.
    QPainterPath Snapped(QPainterPath path) const;

    QPainter& painter;
    QTransform points;  ///< maps unscaled coordinates of the content to the painter's original ones
    ThinLines thinLines;
    QTransform toPixels;    ///< maps the scaled coordinates of the content to pixels of the device
    QTransform fromPixels;  ///< the inverse of toPixels
    double pixels = 1.0;    ///< the width in pixels of a line of width 1 in the content
    PagePen lastPen;
    bool lastWasDot = false;
    bool hasPen = false;
    bool snaps = false;  ///< whether the lines of the pen are moved onto whole pixels
};

/// A PagePainter that stops painting once `stops`, which another thread may set, is true.
class StoppablePainter : public PagePainter {
public:
    StoppablePainter(QPainter& thePainter, double pageHeight, ThinLines thinned, const std::atomic<bool>& stops)
        : PagePainter(thePainter, pageHeight, thinned), stop(stops)
    {}

protected:
    bool GoesOn() override { return !stop.load(std::memory_order_relaxed); }

private:
    const std::atomic<bool>& stop;
};

/// Paints a whole page: white paper of the given size in points, and the content, clipped to the paper. The
/// coordinates of `painter` must be those that PagePainter expects. Returns the damage, if any; what precedes it
/// is painted.
PageDamage PaintPage(QPainter& painter, const QSizeF& paper, std::string_view content,
                     PagePainter::ThinLines thinLines);

}  // namespace linealis::desktop
