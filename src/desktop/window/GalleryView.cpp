#include "desktop/window/GalleryView.h"

#include "desktop/system/Text.h"
#include "desktop/system/WindowPlace.h"
#include "desktop/window/GalleryPicture.h"
#include "desktop/window/GallerySearch.h"
#include "desktop/window/PaperView.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>

namespace linealis::desktop {

namespace {

/// The picture of a kind, in a black frame.
class GalleryCanvas final : public QAbstractButton {
public:
    GalleryCanvas(const GalleryWindow::Entry& entry, QWidget* parent) : QAbstractButton(parent), name(entry.picture)
    {
        setGeometry(entry.canvasPlace.left, entry.canvasPlace.top, GalleryWindow::canvasWidth,
                    GalleryWindow::canvasHeight);
        setObjectName(ToQt(entry.picture));
        setAccessibleName(Translated(entry.title));
        setToolTip(Translated(entry.title));
        setCursor(Qt::PointingHandCursor);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        const double ratio = devicePixelRatioF();
        if (picture.isNull() || picture.devicePixelRatio() != ratio) {
            picture = GalleryPicture(name, size(), ratio);
        }
        painter.drawPixmap(rect(), picture);
        painter.setPen(Qt::black);
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));  // inside the widget at any pixel ratio
        if (hasFocus()) {                                                 // inside the frame, which stays visible
            painter.setPen(QPen(palette().highlight(), 3));
            painter.drawRect(rect().adjusted(3, 3, -4, -4));
        }
    }

    /// Counts as a click wherever the pointer is when the button is released.
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton && isDown()) {
            setDown(false);
            emit clicked();
        }
    }

    void mouseMoveEvent(QMouseEvent* /*event*/) override {}

    /// Handles only the keys that open the kind: Return here, Space in the base class. The window handles all
    /// others.
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            emit clicked();
        } else if (event->key() == Qt::Key_Space) {
            QAbstractButton::keyPressEvent(event);
        } else {
            event->ignore();
        }
    }

private:
    std::string_view name;
    QPixmap picture;
};

/// Scrolls, but leaves the keys to the window, where the arrows move between the pictures.
class GalleryArea final : public QScrollArea {
protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
};

constexpr int widestTitle = 112;  // pixels; leaves a gap of 10 before the next title

/// Returns the font for the titles: the font of the window, or a smaller one if a title would not fit.
QFont TitleFont(const GalleryWindow& gallery, QFont font)
{
    int widest = 0;
    for (const GalleryWindow::Entry& entry : gallery.Entries()) {
        widest = std::max(widest, QFontMetrics(font).horizontalAdvance(Translated(entry.title)));
    }
    if (widest > widestTitle) {
        font.setPointSizeF(QFontInfo(font).pointSizeF() * widestTitle / widest);
    }
    return font;
}

/// Returns the place of the title of an entry. It grows to the right and upward if the font requires it.
QRect TitlePlace(const GalleryWindow::Entry& entry, const QFontMetrics& font)
{
    const int height = std::max(GalleryWindow::titleHeight, font.height());
    return {entry.titlePlace.left, entry.canvasPlace.top - height,
            std::max(GalleryWindow::titleWidth, font.horizontalAdvance(Translated(entry.title)) + 1), height};
}

}  // namespace

GalleryView::GalleryView(GalleryWindow& theGallery, const FolderItem& preferencesFolder) : gallery(theGallery)
{
    setWindowTitle(Translated(GalleryWindow::title));
    setObjectName(QStringLiteral("gallery"));
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowCloseButtonHint);
    setAcceptDrops(true);
    auto* const content = new QWidget;
    content->setLayoutDirection(Qt::LeftToRight);  // the pictures have fixed places
    AddEntries(content);
    QPushButton* const help = AddHelp(content);
    AddSearch(content, preferencesFolder, help);
    PlaceSearch(content, help);
    area = new GalleryArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(content);
    area->setFixedSize(content->size());
    setCentralWidget(area);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    pictures.front()->setFocus();
    auto* const manual = new QShortcut(Qt::Key_F1, this);
    connect(manual, &QShortcut::activated, this, &GalleryView::ManualWanted);
}

void GalleryView::AddEntries(QWidget* content)
{
    const QFont titleFont = TitleFont(gallery, font());
    for (std::size_t i = 0; i < gallery.Entries().size(); ++i) {
        const GalleryWindow::Entry& entry = gallery.Entries()[i];
        auto* const title = new QLabel(Translated(entry.title), content);
        title->setFont(titleFont);
        title->setGeometry(TitlePlace(entry, QFontMetrics(titleFont)));
        auto* const canvas = new GalleryCanvas(entry, content);
        connect(canvas, &QAbstractButton::clicked, this, [this, i] { gallery.Event_MouseUp(i); });
        pictures.push_back(canvas);
    }
    constexpr int promptTop = 12;
    auto* const prompt = new QLabel(Translated(GalleryWindow::prompt), content);
    prompt->setObjectName(QStringLiteral("StaticText1"));
    const int titlesTop = TitlePlace(gallery.Entries().front(), QFontMetrics(titleFont)).top();
    prompt->move(GalleryWindow::margin, std::clamp(titlesTop - prompt->sizeHint().height(), 0, promptTop));
}

QPushButton* GalleryView::AddHelp(QWidget* content) const
{
    auto* const help = new QPushButton(Translated("Help"), content);
    help->setObjectName(QStringLiteral("PushButton1"));
    connect(help, &QPushButton::clicked, this, &GalleryView::HelpWanted);
    return help;
}

/// Adds the search in the space that the entries leave free, around the Help button.
void GalleryView::AddSearch(QWidget* content, const FolderItem& preferencesFolder, QPushButton* help)
{
    search = new GallerySearch(preferencesFolder, content);
    search->LeaveFree(help->sizeHint());
    help->raise();
    connect(search, &GallerySearch::OpenWanted, this, &GalleryView::OpenWanted);
    connect(search, &GallerySearch::PickerWanted, this, &GalleryView::PickerWanted);
    connect(search, &GallerySearch::Chosen, this, [this](const PaperHit& hit) {
        if (hit.sort == PaperHit::Sort::Kind) {
            gallery.Event_MouseUp(static_cast<std::size_t>(hit.kind - PaperKinds().data()));
        } else {
            emit Chosen(hit);
        }
    });
    QWidget* before = pictures.back();
    for (QWidget* const stop : search->TabStops()) {
        setTabOrder(before, stop);
        before = stop;
    }
    setTabOrder(before, help);
}

void GalleryView::PlaceSearch(QWidget* content, QPushButton* help) const
{
    constexpr int margin = GalleryWindow::margin;
    const GalleryWindow::Place room = gallery.FreeRoom();
    const QSize least = search->minimumSizeHint();  // larger than the room only with a large font
    const QRect place(QPoint(room.left, room.top), least.expandedTo({GalleryWindow::width - margin - room.left,
                                                                     GalleryWindow::height - margin - room.top}));
    search->setGeometry(place);
    help->adjustSize();
    help->move(place.right() + 1 - help->width(), place.bottom() + 1 - help->height());
    content->setFixedSize(place.right() + 1 + margin, place.bottom() + 1 + margin);
}

void GalleryView::FitInto(const QSize& room)
{
    const QSize around = windowDecorations + QSize(0, menuBar()->sizeHint().height());
    const QSize content = area->widget()->size();
    const QSize scrollBars(area->verticalScrollBar()->sizeHint().width(),
                           area->horizontalScrollBar()->sizeHint().height());
    QSize shown = content.boundedTo(room - around);
    if (shown.height() < content.height()) {
        shown.setWidth(std::min(content.width() + scrollBars.width(), room.width() - around.width()));
    }
    if (shown.width() < content.width()) {
        shown.setHeight(std::min(content.height() + scrollBars.height(), room.height() - around.height()));
    }
    area->setFixedSize(shown);
}

void GalleryView::Place()
{
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    FitInto(room.size());
    adjustSize();
    const GalleryWindow::Place place = GalleryWindow::PlaceOnScreen(
        room.width(), room.height(), frameGeometry().width(), frameGeometry().height());
    move(room.left() + place.left, room.top() + place.top);
}

QWidget* GalleryView::PictureFor(int key, std::size_t from) const
{
    switch (key) {
    case Qt::Key_Left:
        return pictures[gallery.Neighbor(from, GalleryWindow::Direction::Left)];
    case Qt::Key_Right:
        return pictures[gallery.Neighbor(from, GalleryWindow::Direction::Right)];
    case Qt::Key_Up:
        return pictures[gallery.Neighbor(from, GalleryWindow::Direction::Up)];
    case Qt::Key_Down:
        return pictures[gallery.Neighbor(from, GalleryWindow::Direction::Down)];
    case Qt::Key_Home:
        return pictures.front();
    case Qt::Key_End:
        return pictures.back();
    default:
        return nullptr;
    }
}

/// Handles the keys that the focused picture has ignored: arrow keys move the focus, letters and digits start a
/// search.
void GalleryView::keyPressEvent(QKeyEvent* event)
{
    const auto focused = std::find(pictures.begin(), pictures.end(), focusWidget());
    if (focused == pictures.end()) {
        QMainWindow::keyPressEvent(event);
        return;
    }
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const auto from = static_cast<std::size_t>(focused - pictures.begin());
    if (QWidget* const picture = PictureFor(event->key(), from)) {
        picture->setFocus(Qt::TabFocusReason);
        area->ensureWidgetVisible(picture);
    } else if (const QString text = event->text();
               !(event->modifiers() & commands) && !text.isEmpty() && text.front().isLetterOrNumber()) {
        search->Type(text);
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

void GalleryView::dragEnterEvent(QDragEnterEvent* event)
{
    if (!SettingsFilesIn(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void GalleryView::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    emit FilesDropped(SettingsFilesIn(*event->mimeData()));
}

void GalleryView::closeEvent(QCloseEvent* event)
{
    event->accept();
    hide();  // before the receiver of Closed checks which windows are open
    emit Closed();
}

}  // namespace linealis::desktop
