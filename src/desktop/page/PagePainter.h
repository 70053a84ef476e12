#pragma once

#include "pdf/PageContent.h"

#include <QPainter>
#include <QSizeF>
#include <string_view>

namespace linealis::desktop {

/// Paints a page's content with QPainter: on a screen, into a picture, on a printer. What is painted is what the
/// content says, operator by operator; nothing knows the kind of paper.
class PagePainter : public PageSink {
public:
    /// What becomes of a line that is thinner than a pixel of the device.
    enum class ThinLines {
        AsTheyAre,  ///< for a printer, whose pixels are fine enough
        Faded,    ///< one pixel wide, and as much lighter as it should be thinner, so that no line is lost and the
                  ///< page is as dark as it prints; put on one row or column of pixels if it lies along them
        Widened,  ///< two pixels wide: for lights
    };

    /// `painter`'s system counts in points from the page's upper left corner downwards; `pageHeight` is in points.
    PagePainter(QPainter& thePainter, double pageHeight, ThinLines thinLines);

    bool Scale(double sx, double sy) override;
    bool Stroke(PagePath path, const PagePen& pen) override;
    bool Fill(PagePath path, const PageColor& color) override;
    bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) override;
    bool Text(const PageText& text) override;

protected:
    /// Asked before everything that is painted: whether to go on.
    virtual bool GoesOn() { return true; }

private:
    void SetPen(const PagePen& pen, bool isDot);
    void StrokePath(PagePath path, const PagePen& pen);
    void StrokeLine(QPointF from, QPointF to);

    QPainter& painter;
    QTransform points;  ///< the system that the content counts in, before its scale
    ThinLines thinLines;
    QTransform toPixels;    ///< of the device, from the content's system
    QTransform fromPixels;  ///< back
    double pixels = 1.0;    ///< of a line one wide in the content's system
    PagePen lastPen;
    bool lastWasDot = false;
    bool hasPen = false;
    bool snaps = false;  ///< whether the pen's lines are put on whole pixels
};

/// Paints a whole page: white paper of that size in points, and the content on it, cut at the paper's edges.
/// `painter`'s system is that of PagePainter.
PageDamage PaintPage(QPainter& painter, const QSizeF& paper, std::string_view content,
                     PagePainter::ThinLines thinLines);

}  // namespace linealis::desktop
