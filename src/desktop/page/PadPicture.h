#pragma once

#include "desktop/page/PageRenderer.h"
#include "kinds/PadSheet.h"

#include <QImage>
#include <QWidget>
#include <optional>

namespace linealis::desktop {

/// A picture of the first sheet of a pad: its front, its back if it has one, the cuts, and the numbers of the
/// pages, which are drawn large enough to be read.
class PadPicture final : public QWidget {
    Q_OBJECT

public:
    explicit PadPicture(PaperPage front);

    /// Shows another layout. Without a back, the sheet is printed on one side.
    void Show(const PadLayout& theLayout, std::optional<PaperPage> theBack);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// One of the two sides: its page, drawn by a thread of its own.
    struct Side {
        PageRenderer renderer;
        QImage image;  ///< of the page, null before it is drawn
    };

    /// Where the sides are in the widget.
    struct Places {
        double scale = 0.0;  ///< pixels per point
        QRectF front;
        QRectF back;
    };
    Places FindPlaces() const;
    /// Requests pictures of the pages at the scale at which they are shown.
    void RequestPages();
    void PaintSide(QPainter& painter, const QRectF& place, const Side& side, bool isFront) const;
    void PaintCuts(QPainter& painter, const QRectF& place) const;
    void PaintNumbers(QPainter& painter, const QRectF& place) const;
    /// Returns the rectangle of a page on a side.
    QRectF PageAt(const QRectF& place, std::size_t index) const;

    PadLayout layout;
    Side front;
    Side back;
    bool hasBack = false;
};

}  // namespace linealis::desktop
