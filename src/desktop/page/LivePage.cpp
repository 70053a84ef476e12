#include "desktop/page/LivePage.h"

#include "pdf/Units.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

namespace linealis::desktop {

namespace {

constexpr double border = 12.0;     // pixels of background around the page
constexpr double zoomStep = 1.25;   // factor per key press or notch of the wheel
constexpr double largestZoom = 16;  // 1600 % of the actual size
constexpr double smallestZoom = 0.05;
constexpr double handleReach = 4.0;  // pixels to a handle
constexpr int leastDrag = 4;         // pixels; less than the usual distance, because handles move in small steps
constexpr QColor lightOfMargin(242, 89, 0, 60);
constexpr double notch = 120.0;  // of a mouse wheel, in eighths of a degree as Qt counts them

/// Paints a soft shadow around the sheet, a little more below it.
void PaintShadow(QPainter& painter, const QRectF& sheet)
{
    constexpr int blur = 6, opacity = 9;  // pixels; of 255, for each of the layers
    for (int layer = 1; layer <= blur; ++layer) {
        painter.fillRect(sheet.adjusted(-layer, -layer / 2.0, layer, layer + 1.0), QColor(0, 0, 0, opacity));
    }
}

}  // namespace

LivePage::LivePage(QWidget* parent) : QAbstractScrollArea(parent)
{
    setObjectName(QStringLiteral("LivePage"));
    setAccessibleName(tr("Live page"));
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    setMinimumWidth(200);
    viewport()->setCursor(CursorFor({}));
    viewport()->setMouseTracking(true);
    const auto middle = [this] { return QRectF(viewport()->rect()).center(); };
    AddAction("ViewFit", tr("Fit Page"), tr("Fit"), QKeySequence(QStringLiteral("Ctrl+0")),
              [=, this] { Zoom({}, middle()); });
    AddAction("ViewActualSize", tr("Actual Size"), tr("100 %"), QKeySequence(QStringLiteral("Ctrl+1")),
              [=, this] { Zoom(ActualSize(), middle()); });
    AddAction("ViewZoomIn", tr("Zoom In"), QStringLiteral("+"), QKeySequence(QStringLiteral("Ctrl++")),
              [=, this] { ZoomBy(zoomStep, middle()); });
    AddAction("ViewZoomOut", tr("Zoom Out"), QStringLiteral("\u2212"), QKeySequence(QStringLiteral("Ctrl+-")),
              [=, this] { ZoomBy(1 / zoomStep, middle()); });
    QAction* const margins = AddAction("ViewMargins", tr("Shade Margins"), tr("Margins"), {}, [this] {
        showsMargins = !showsMargins;
        viewport()->update();
    });
    margins->setCheckable(true);
    connect(&renderer, &PageRenderer::Rendered, this, [this](const PagePicture& rendered) {
        picture = rendered;
        viewport()->update();
        emit Painted();
    });
}

QAction* LivePage::AddAction(const char* name, const QString& text, const QString& shortText,
                             const QKeySequence& key, const std::function<void()>& act)
{
    auto* const action = new QAction(text, this);
    action->setObjectName(QString::fromLatin1(name));
    action->setIconText(shortText);
    action->setToolTip(key.isEmpty() ? text : tr("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText)));
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, act);
    viewActions << action;
    return action;
}

void LivePage::Show(const PaperPage& page, const QString& summary)
{
    const bool sameSize = frame.paperWidth == page.frame.paperWidth && frame.paperHeight == page.frame.paperHeight;
    frame = page.frame;
    if (accessibleName() != summary) {
        setAccessibleName(summary);
        QAccessibleEvent event(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
    renderer.SetPage(page);
    if (!sameSize) {
        LayOut();
    }
    AskForPicture();
}

double LivePage::ActualSize() const
{
    // Some screens report no physical size or a wrong one.
    const double physical = screen()->physicalDotsPerInch();
    const bool isPlausible = physical > 40.0 && physical < 800.0;
    return (isPlausible ? physical : screen()->logicalDotsPerInch()) / pointsPerInch;
}

double LivePage::Fit() const
{
    const QSizeF room = QSizeF(maximumViewportSize()) - QSizeF(2 * border, 2 * border);
    const double zoomToFit =
        std::min(room.width() / static_cast<double>(std::max<std::int64_t>(frame.paperWidth, 1)),
                 room.height() / static_cast<double>(std::max<std::int64_t>(frame.paperHeight, 1)));
    // The result must be positive even if the window has no room left for the page.
    return std::clamp(zoomToFit, 0.001, largestZoom * ActualSize());
}

double LivePage::PixelsPerPoint() const
{
    return zoom.value_or(Fit());
}

QSizeF LivePage::PaperInPixels() const
{
    return QSizeF(static_cast<double>(frame.paperWidth), static_cast<double>(frame.paperHeight)) * PixelsPerPoint();
}

QPointF LivePage::Origin() const
{
    const QSizeF paper = PaperInPixels();
    const QSizeF spare = QSizeF(viewport()->size()) - paper;
    return {spare.width() > 0.0 ? spare.width() / 2.0 : border - horizontalScrollBar()->value(),
            spare.height() > 0.0 ? spare.height() / 2.0 : border - verticalScrollBar()->value()};
}

void LivePage::Zoom(std::optional<double> newZoom, QPointF fixed)
{
    const QPointF onPage = (fixed - Origin()) / PixelsPerPoint();
    if (newZoom) {
        newZoom = std::clamp(*newZoom, smallestZoom * ActualSize(), largestZoom * ActualSize());
    }
    zoom = newZoom;
    LayOut();  // first, so that the scroll bars have their new ranges
    const QPointF moved = onPage * PixelsPerPoint() + Origin() - fixed;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + static_cast<int>(std::lround(moved.x())));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + static_cast<int>(std::lround(moved.y())));
    AskForPicture();
}

void LivePage::ZoomTo(double percent)
{
    Zoom(percent / 100.0 * ActualSize(), QRectF(viewport()->rect()).center());
}

void LivePage::ZoomBy(double factor, QPointF fixed)
{
    Zoom(PixelsPerPoint() * factor, fixed);
}

void LivePage::LayOut()
{
    const QSize all = (PaperInPixels() + QSizeF(2 * border, 2 * border)).toSize();
    const QSize room = maximumViewportSize();
    const auto set = [](QScrollBar& bar, int length, int page) {
        bar.setRange(0, std::max(length - page, 0));
        bar.setPageStep(page);
        bar.setSingleStep(std::max(page / 20, 1));
    };
    // A page that fits the window has nothing to scroll.
    set(*horizontalScrollBar(), zoom ? all.width() : 0, room.width());
    set(*verticalScrollBar(), zoom ? all.height() : 0, room.height());
}

void LivePage::AskForPicture()
{
    renderer.SetExcerpt({PixelsPerPoint(), Origin(), viewport()->size(), devicePixelRatioF()});
    viewport()->update();
    emit ViewChanged();
}

void LivePage::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(viewport());
    constexpr int groundDarkness = 112;  // percent
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Window).darker(groundDarkness));
    const QRectF sheet(Origin(), PaperInPixels());
    PaintShadow(painter, sheet);
    painter.fillRect(sheet, Qt::white);
    if (!picture.image.isNull()) {
        // Until the renderer delivers the new picture, show the last one, moved and scaled to the new view.
        const double grown = PixelsPerPoint() / picture.excerpt.scale;
        const QPointF corner = Origin() - picture.excerpt.origin * grown;
        painter.save();
        painter.setClipRect(sheet);
        painter.drawImage(QRectF(corner, QSizeF(picture.excerpt.size) * grown), picture.image);
        painter.restore();
    }
    if (showsMargins) {
        PaintMargins(painter);
    }
    if (litMargin) {
        painter.fillRect(BandOf(sheet, InsideMargins(), *litMargin), lightOfMargin);
    }
    if (const std::optional<Side> side = SideOf(press == Press::Drags ? grabbed : hovered)) {
        PaintEdge(painter, *side);
    }
    if (!picture.problem.isEmpty()) {
        PaintProblem(painter);
    }
}

void LivePage::PaintProblem(QPainter& painter) const
{
    constexpr QMargins around(6, 4, 6, 4);
    const QRect room = viewport()->rect().marginsRemoved(around);
    const QRect lines = painter.boundingRect(room, Qt::TextWordWrap, picture.problem);
    painter.fillRect(QRect(0, 0, viewport()->width(), lines.marginsAdded(around).height()),
                     palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(room, Qt::TextWordWrap, picture.problem);
}

void LivePage::PaintMargins(QPainter& painter) const
{
    QRegion margins(QRectF(Origin(), PaperInPixels()).toRect());
    margins -= QRegion(InsideMargins().toRect());
    // Fill the parts of the region one by one instead of clipping: Qt 6.4 ignores a clip that is set after
    // setClipping(false).
    for (const QRect& part : margins) {
        painter.fillRect(part, QColor(0, 90, 200, 40));
    }
}

void LivePage::PaintEdge(QPainter& painter, Side side) const
{
    painter.setPen(QPen(QColor(0, 90, 200), 1.0, Qt::DashLine));
    painter.drawLine(EdgeOf(InsideMargins(), side));
}

void LivePage::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    LayOut();
    AskForPicture();
}

void LivePage::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    AskForPicture();
}

void LivePage::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        ZoomBy(std::pow(zoomStep, event->angleDelta().y() / notch), event->position());
        event->accept();
    } else {
        QAbstractScrollArea::wheelEvent(event);
    }
}

QPointF LivePage::OnPage(QPointF place) const
{
    const QPointF fromTop = (place - Origin()) / PixelsPerPoint();
    return {fromTop.x(), static_cast<double>(frame.paperHeight) - fromTop.y()};
}

QRectF LivePage::InsideMargins() const
{
    const double scale = PixelsPerPoint();
    const auto height = static_cast<double>(frame.paperHeight);
    return QRectF(Origin() + QPointF(frame.LeftEdge(), height - frame.TopEdge()) * scale,
                  Origin() + QPointF(frame.RightEdge(), height - frame.BottomEdge()) * scale);
}

std::optional<PageHandle> LivePage::HandleAt(QPointF place) const
{
    const QPointF point = OnPage(place);
    for (const TextArea& title : picture.titles) {
        const bool isMovable =
            std::find(movableTitles.begin(), movableTitles.end(), title.role) != movableTitles.end();
        if (isMovable && point.x() >= title.lowerLeft.x && point.x() <= title.upperRight.x &&
            point.y() >= title.lowerLeft.y && point.y() <= title.upperRight.y) {
            return title;
        }
    }
    if (const std::optional<Side> side = NearestEdge(InsideMargins(), place, handleReach)) {
        return *side;
    }
    return std::nullopt;
}

void LivePage::LightUpMargin(std::optional<Side> side)
{
    if (std::exchange(litMargin, side) != side) {
        viewport()->update();
    }
}

void LivePage::Hover(const std::optional<PageHandle>& handle)
{
    if (SideOf(handle) != SideOf(hovered)) {
        viewport()->update();
    }
    hovered = handle;
    viewport()->setCursor(CursorFor(hovered));
}

void LivePage::DragPage(const QMouseEvent& event)
{
    const QPoint moved = event.position().toPoint() - dragged;
    dragged = event.position().toPoint();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
}

void LivePage::DragHandle(const QMouseEvent& event)
{
    const QPointF moved = event.position() - pressed;
    if (press == Press::Grabs && moved.manhattanLength() >= leastDrag) {
        press = Press::Drags;
        emit DragBegan(*grabbed);
    }
    if (press == Press::Drags) {
        const bool isFine = (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier)) != 0;
        emit Dragged(QPointF(moved.x(), -moved.y()) / PixelsPerPoint(), isFine ? Grain::Fine : Grain::Coarse);
    }
}

void LivePage::EndDrag()
{
    press = Press::Scrolls;
    emit DragEnded();
}

void LivePage::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && press == Press::Drags) {
        press = Press::IsCanceled;
        emit DragCanceled();
    } else {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void LivePage::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        dragged = pressed = event->position().toPoint();
        grabbed = HandleAt(event->position());
        press = grabbed ? Press::Grabs : Press::Scrolls;
    }
}

void LivePage::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const QPoint moved = event->position().toPoint() - pressed;
    if (press == Press::Drags) {
        EndDrag();
    } else if (press != Press::IsCanceled && moved.manhattanLength() < QApplication::startDragDistance()) {
        emit Clicked(OnPage(event->position()));  // a longer move has scrolled the page
    }
    Hover(HandleAt(event->position()));
}

void LivePage::mouseMoveEvent(QMouseEvent* event)
{
    emit PointerMoved(event->position());
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        if (press == Press::Drags) {  // the release went elsewhere
            EndDrag();
        }
        Hover(HandleAt(event->position()));
    } else if (press == Press::Scrolls) {
        DragPage(*event);
    } else if (press != Press::IsCanceled) {
        DragHandle(*event);
    }
}

bool LivePage::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Leave) {
        Hover({});
        emit PointerLeft();
    }
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        emit Rested(OnPage(help.pos()), help.globalPos());
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

}  // namespace linealis::desktop
