#pragma once

#include "desktop/PageRenderer.h"

#include <QAbstractScrollArea>
#include <QList>

class QAction;

namespace linealis::desktop {

/// The page that the form makes now, read back from its content. It asks nothing, writes nothing and changes no
/// field. Ctrl and the wheel zoom, dragging moves the page.
class LivePage final : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit LivePage(QWidget* parent = nullptr);

    /// Shows another page; what is still being drawn of the one before stops. `summary` tells it in words.
    void Show(const PaperPage& page, const QString& summary);
    /// Lights up the strokes that the other page does not have; none without one.
    void LightUp(std::optional<PaperPage> other);

    /// Fit, actual size, zoom in, zoom out, margins: for a menu.
    QList<QAction*> ViewActions() const { return viewActions; }

    /// Pixels for a point of the page.
    double PixelsPerPoint() const;
    const PagePicture& Picture() const { return picture; }

    QSize sizeHint() const override { return {400, 520}; }

signals:
    /// The picture shows what was asked for last, or as much of it as there is.
    void Painted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    QAction* AddAction(const QString& text, const QKeySequence& key, const std::function<void()>& act);
    /// The zoom at which a point of the page is as large as on paper, by what the screen says of itself.
    double ActualSize() const;
    double Fit() const;
    /// Nothing fits the page into the window. `fixed` stays where it is, in pixels of the viewport.
    void Zoom(std::optional<double> newZoom, QPointF fixed);
    void ZoomBy(double factor, QPointF fixed);
    QSizeF PaperInPixels() const;
    /// Where the page's upper left corner stands in the viewport.
    QPointF Origin() const;
    void LayOut();
    void AskForPicture();
    void PaintMargins(QPainter& painter) const;

    PageRenderer renderer;
    PagePicture picture;
    PageFrame frame;
    std::optional<double> zoom;  ///< pixels for a point; nothing: the page fits
    bool showsMargins = false;
    QPoint dragged;
    QList<QAction*> viewActions;
};

}  // namespace linealis::desktop
