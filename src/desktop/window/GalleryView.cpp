#include "desktop/window/GalleryView.h"

#include "desktop/system/Text.h"
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
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
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
        setAccessibleName(ToQt(entry.title));
        setToolTip(ToQt(entry.title));
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

}  // namespace

GalleryView::GalleryView(GalleryWindow& theGallery, const FolderItem& preferencesFolder) : gallery(theGallery)
{
    setWindowTitle(ToQt(GalleryWindow::title));
    setObjectName(QStringLiteral("gallery"));
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowCloseButtonHint);
    setAcceptDrops(true);
    auto* const content = new QWidget;
    content->setFixedSize(GalleryWindow::width, GalleryWindow::height);
    setCentralWidget(content);
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    auto* const prompt = new QLabel(ToQt(GalleryWindow::prompt), content);
    prompt->move(20, 12);
    prompt->setObjectName(QStringLiteral("StaticText1"));
    AddEntries(content);
    QPushButton* const help = AddHelp(content);
    AddSearch(content, preferencesFolder, help);
    pictures.front()->setFocus();
    auto* const manual = new QShortcut(Qt::Key_F1, this);
    connect(manual, &QShortcut::activated, this, &GalleryView::ManualWanted);
}

void GalleryView::AddEntries(QWidget* content)
{
    for (std::size_t i = 0; i < gallery.Entries().size(); ++i) {
        const GalleryWindow::Entry& entry = gallery.Entries()[i];
        auto* const title = new QLabel(ToQt(entry.title), content);
        title->setGeometry(entry.titlePlace.left, entry.titlePlace.top, GalleryWindow::titleWidth,
                           GalleryWindow::titleHeight);
        auto* const canvas = new GalleryCanvas(entry, content);
        connect(canvas, &QAbstractButton::clicked, this, [this, i] { gallery.Event_MouseUp(i); });
        pictures.push_back(canvas);
    }
}

QPushButton* GalleryView::AddHelp(QWidget* content) const
{
    auto* const help = new QPushButton(QStringLiteral("Help"), content);
    help->setObjectName(QStringLiteral("PushButton1"));
    help->move(GalleryWindow::width - help->sizeHint().width() - 20,
               GalleryWindow::height - help->sizeHint().height() - 20);
    connect(help, &QPushButton::clicked, this, &GalleryView::HelpWanted);
    return help;
}

/// Adds the search in the space that the entries leave free, around the Help button.
void GalleryView::AddSearch(QWidget* content, const FolderItem& preferencesFolder, QPushButton* help)
{
    search = new GallerySearch(preferencesFolder, content);
    const GalleryWindow::Place room = gallery.FreeRoom();
    search->setGeometry(room.left, room.top, GalleryWindow::width - GalleryWindow::margin - room.left,
                        GalleryWindow::height - GalleryWindow::margin - room.top);
    search->LeaveFree(help->sizeHint());
    help->raise();
    connect(search, &GallerySearch::OpenWanted, this, &GalleryView::OpenWanted);
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

void GalleryView::Place()
{
    adjustSize();
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
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
