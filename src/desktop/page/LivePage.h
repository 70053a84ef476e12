#pragma once

#include "desktop/page/PageRenderer.h"

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
    /// Lights up all that has one of the roles.
    void LightUp(const RoleSet& roles) { renderer.LightUp(roles); }

    /// Fit, actual size, zoom in, zoom out, margins, and what has been added: for a menu.
    QList<QAction*> ViewActions() const { return viewActions; }
    void AddViewAction(QAction* action) { viewActions << action; }

    /// Pixels for a point of the page.
    double PixelsPerPoint() const;
    double ZoomPercent() const { return PixelsPerPoint() / ActualSize() * 100.0; }
    /// Zooms to so many per cent of the actual size, within what is possible.
    void ZoomTo(double percent);
    /// Where the page's upper left corner stands, in pixels.
    QPointF Origin() const;
    QSizeF PaperInPixels() const;
    const PagePicture& Picture() const { return picture; }

signals:
    /// The picture shows what was asked for last, or as much of it as there is.
    void Painted();
    /// The page lies elsewhere, or is larger or smaller.
    void ViewChanged();
    void PointerMoved(QPointF place);
    void PointerLeft();
    /// The page was clicked at a place, in points from its lower left corner.
    void Clicked(QPointF place);
    /// The pointer rests on such a place.
    void Rested(QPointF place, const QPoint& onScreen);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    /// `shortText` stands on a button.
    QAction* AddAction(const char* name, const QString& text, const QString& shortText, const QKeySequence& key,
                       const std::function<void()>& act);
    /// The zoom at which a point of the page is as large as on paper, by what the screen says of itself.
    double ActualSize() const;
    double Fit() const;
    /// Nothing fits the page into the window. `fixed` stays where it is, in pixels of the viewport.
    void Zoom(std::optional<double> newZoom, QPointF fixed);
    void ZoomBy(double factor, QPointF fixed);
    void LayOut();
    QPointF OnPage(QPointF place) const;
    void AskForPicture();
    /// What is wrong with the page, in as many lines as it takes.
    void PaintProblem(QPainter& painter) const;
    void PaintMargins(QPainter& painter) const;

    PageRenderer renderer;
    PagePicture picture;
    PageFrame frame;
    std::optional<double> zoom;  ///< pixels for a point; nothing: the page fits
    bool showsMargins = false;
    QPoint dragged;
    QPoint pressed;
    QList<QAction*> viewActions;
};

}  // namespace linealis::desktop
