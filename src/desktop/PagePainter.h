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
    /// `painter`'s system counts in points from the page's upper left corner downwards; `pageHeight` is in points.
    /// A line thinner than `thinnest` points is painted that wide.
    PagePainter(QPainter& thePainter, double pageHeight, double thinnest = 0.0);

    bool Scale(double sx, double sy) override;
    bool Stroke(PagePath path, const PagePen& pen) override;
    bool Fill(PagePath path, const PageColor& color) override;
    bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) override;
    bool Text(const PageText& text) override;

protected:
    /// Asked before everything that is painted: whether to go on.
    virtual bool GoesOn() { return true; }

private:
    void SetPen(const PagePen& pen);
    void StrokePath(PagePath path, const PagePen& pen);

    QPainter& painter;
    QTransform points;  ///< the system that the content counts in, before its scale
    double thinnest;
    double scale = 1.0;  ///< of line widths, for the thinnest
    PagePen lastPen;
    bool hasPen = false;
};

/// Paints a whole page: white paper of that size in points, and the content on it, cut at the paper's edges.
/// `painter`'s system is that of PagePainter.
PageDamage PaintPage(QPainter& painter, const QSizeF& paper, std::string_view content, double thinnest = 0.0);

}  // namespace linealis::desktop
