#include "desktop/GalleryView.h"

#include "desktop/Text.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>

namespace linealis::desktop {

namespace {

/// The picture of a kind, in a black frame.
class GalleryCanvas final : public QAbstractButton {
public:
    GalleryCanvas(const GalleryWindow::Entry& entry, QWidget* parent)
        : QAbstractButton(parent), picture(QStringLiteral(":/gallery/") + ToQt(entry.picture))
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
        painter.drawPixmap(rect(), picture);
        painter.setPen(Qt::black);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        if (hasFocus()) {  // beside the frame, which stays as it is
            painter.setPen(QPen(palette().highlight(), 3));
            painter.drawRect(rect().adjusted(3, 3, -4, -4));
        }
    }

    /// The release counts wherever the pointer stands.
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton && isDown()) {
            setDown(false);
            emit clicked();
        }
    }

    void mouseMoveEvent(QMouseEvent* /*event*/) override {}

private:
    QPixmap picture;
};

}  // namespace

GalleryView::GalleryView(GalleryWindow& theGallery) : gallery(theGallery)
{
    setWindowTitle(ToQt(GalleryWindow::title));
    setObjectName(QStringLiteral("gallery"));
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowCloseButtonHint);
    auto* const content = new QWidget;
    content->setFixedSize(GalleryWindow::width, GalleryWindow::height);
    setCentralWidget(content);
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    auto* const prompt = new QLabel(ToQt(GalleryWindow::prompt), content);
    prompt->move(20, 12);
    prompt->setObjectName(QStringLiteral("StaticText1"));
    for (std::size_t i = 0; i < gallery.Entries().size(); ++i) {
        const GalleryWindow::Entry& entry = gallery.Entries()[i];
        auto* const title = new QLabel(ToQt(entry.title), content);
        title->setGeometry(entry.titlePlace.left, entry.titlePlace.top, GalleryWindow::titleWidth,
                           GalleryWindow::titleHeight);
        auto* const canvas = new GalleryCanvas(entry, content);
        connect(canvas, &QAbstractButton::clicked, this, [this, i] { gallery.Event_MouseUp(i); });
    }
    auto* const help = new QPushButton(QStringLiteral("Help"), content);
    help->setObjectName(QStringLiteral("PushButton1"));
    help->move(GalleryWindow::width - help->sizeHint().width() - 20,
               GalleryWindow::height - help->sizeHint().height() - 20);
    connect(help, &QPushButton::clicked, this, &GalleryView::HelpWanted);
}

void GalleryView::Place()
{
    adjustSize();
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    const GalleryWindow::Place place = GalleryWindow::PlaceOnScreen(
        room.width(), room.height(), frameGeometry().width(), frameGeometry().height());
    move(room.left() + place.left, room.top() + place.top);
}

void GalleryView::closeEvent(QCloseEvent* event)
{
    event->accept();
    hide();  // before anyone looks which windows are left
    emit Closed();
}

}  // namespace linealis::desktop
