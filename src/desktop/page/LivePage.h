#pragma once

#include "desktop/page/PageHandle.h"
#include "desktop/page/PageRenderer.h"

#include <QAbstractScrollArea>
#include <QList>
#include <optional>
#include <vector>

class QAction;

namespace linealis::desktop {

/// Shows the page that the form currently makes, painted from its content. Never asks a question, writes a file,
/// or changes a field. Ctrl with the wheel zooms. Dragging scrolls the page, or says that the user moves a margin
/// or a title.
class LivePage final : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit LivePage(QWidget* parent = nullptr);

    /// Shows another page and aborts the drawing of the previous one. `summary` describes the page in words; it
    /// becomes the accessible name.
    void Show(const PaperPage& page, const QString& summary);
    /// Highlights everything that has one of the roles.
    void LightUp(const RoleSet& roles) { renderer.LightUp(roles); }
    /// Highlights a margin, or none.
    void LightUpMargin(std::optional<Side> side);

    /// Returns the actions for a menu: fit, actual size, zoom in, zoom out, margins, then the added ones.
    QList<QAction*> ViewActions() const { return viewActions; }
    void AddViewAction(QAction* action) { viewActions << action; }

    /// The current zoom, in pixels per point of the page. Always positive.
    double PixelsPerPoint() const;
    double ZoomPercent() const { return PixelsPerPoint() / ActualSize() * 100.0; }
    /// Zooms to a percentage of the actual size, clamped to 5 to 1600.
    void ZoomTo(double percent);
    /// The position of the page's upper left corner in the viewport, in pixels.
    QPointF Origin() const;
    QSizeF PaperInPixels() const;
    const PagePicture& Picture() const { return picture; }
    const PageFrame& Frame() const { return frame; }
    /// Returns what a press at that position in the viewport would drag, or nothing. Titles before margins.
    std::optional<PageHandle> HandleAt(QPointF place) const;
    /// The titles with these roles can be dragged.
    void MakeMovable(std::vector<Role> titles) { movableTitles = std::move(titles); }

signals:
    /// Emitted when a new picture has arrived. A new page gets two pictures; only the second has its warnings.
    void Painted();
    /// Emitted when the page has moved in the viewport or has another scale.
    void ViewChanged();
    /// Emitted with the position of the pointer in the viewport, in pixels.
    void PointerMoved(QPointF place);
    void PointerLeft();
    /// Emitted when the user has clicked on the page. `place` is in points from its lower left corner, and may lie
    /// outside the paper.
    void Clicked(QPointF place);
    /// Emitted when the pointer rests, which is the time for a tool tip. `place` is as in Clicked.
    void Rested(QPointF place, const QPoint& onScreen);
    /// Emitted when the user begins to drag a handle.
    void DragBegan(const linealis::desktop::PageHandle& handle);
    /// Emitted when the handle has been dragged that far from where it was, in points, upward and to the right.
    void Dragged(QPointF distance, linealis::Grain grain);
    /// Emitted when the user has released the handle.
    void DragEnded();
    /// Emitted when the user has pressed Escape during the drag.
    void DragCanceled();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    /// Adds an action to the view actions. `shortText` is for a button, `text` for a menu.
    QAction* AddAction(const char* name, const QString& text, const QString& shortText, const QKeySequence& key,
                       const std::function<void()>& act);
    /// Returns the zoom, in pixels per point, that shows the page as large as on paper. Relies on the resolution
    /// that the screen reports.
    double ActualSize() const;
    /// Returns the zoom, in pixels per point, that fits the whole page into the window.
    double Fit() const;
    /// Sets the zoom in pixels per point; no value fits the page into the window from now on. The point of the
    /// page at `fixed`, in pixels of the viewport, stays in place as far as scrolling allows.
    void Zoom(std::optional<double> newZoom, QPointF fixed);
    void ZoomBy(double factor, QPointF fixed);
    /// Sets the ranges of the scroll bars for the current zoom and window size.
    void LayOut();
    /// Converts a position in the viewport to points from the lower left corner of the page.
    QPointF OnPage(QPointF place) const;
    /// The area of the page inside the margins, in pixels of the viewport.
    QRectF InsideMargins() const;
    /// Scrolls the page as far as the pointer has moved since the last event.
    void DragPage(const QMouseEvent& event);
    /// Moves the handle that was pressed, once the pointer has gone far enough for a drag.
    void DragHandle(const QMouseEvent& event);
    void EndDrag();
    /// Shows the pointer for what it would drag, and the margin that it would move.
    void Hover(const std::optional<PageHandle>& handle);
    /// Requests a picture of the current view from the renderer, and repaints the last one until it arrives.
    void AskForPicture();
    /// Paints what is wrong with the page across the top, on as many lines as needed.
    void PaintProblem(QPainter& painter) const;
    void PaintMargins(QPainter& painter) const;
    /// Paints the line where a margin ends.
    void PaintEdge(QPainter& painter, Side side) const;

    PageRenderer renderer;
    PagePicture picture;
    PageFrame frame;
    std::optional<double> zoom;  ///< pixels per point; no value: fit the page into the window
    bool showsMargins = false;
    QPoint dragged;                     ///< where the pointer was at the last event of the drag
    QPoint pressed;                     ///< where the button was pressed
    std::optional<PageHandle> hovered;  ///< under the pointer
    std::optional<PageHandle> grabbed;  ///< under the pointer when the button was pressed
    /// What moving the pointer does with the button pressed.
    enum class Press { Scrolls, Grabs, Drags, IsCanceled } press = Press::Scrolls;
    std::vector<Role> movableTitles;
    std::optional<Side> litMargin;
    QList<QAction*> viewActions;
};

}  // namespace linealis::desktop
