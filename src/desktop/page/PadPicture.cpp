#include "desktop/page/PadPicture.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace linealis::desktop {

namespace {

// In device-independent pixels.
constexpr double gap = 16.0;
constexpr double shadow = 2.0;

double CaptionHeight(const QWidget& widget)
{
    return widget.fontMetrics().height() + gap / 2.0;
}

}  // namespace

PadPicture::PadPicture(PaperPage frontPage)
{
    setObjectName(QStringLiteral("PadPicture"));
    setAccessibleName(tr("Picture of the first sheet"));
    layout.page = {frontPage.frame.paperWidth, frontPage.frame.paperHeight};
    for (Side* const side : {&front, &back}) {
        connect(&side->renderer, &PageRenderer::Rendered, this, [this, side](const PagePicture& rendered) {
            side->image = rendered.image;
            update();
        });
    }
    front.renderer.SetPage(std::move(frontPage));
}

void PadPicture::Show(const PadLayout& theLayout, std::optional<PaperPage> theBack)
{
    layout = theLayout;
    hasBack = theBack.has_value();
    if (hasBack) {
        back.renderer.SetPage(std::move(*theBack));
    }
    RequestPages();
    update();
}

QSize PadPicture::sizeHint() const
{
    return {380, 340};
}

QSize PadPicture::minimumSizeHint() const
{
    return {240, 240};
}

/// Puts the sides beside each other or above each other, whichever makes them larger.
PadPicture::Places PadPicture::FindPlaces() const
{
    const double sides = hasBack ? 2.0 : 1.0, caption = CaptionHeight(*this);
    const auto sideWidth = static_cast<double>(layout.Side().width);
    const auto sideHeight = static_cast<double>(layout.Side().height);
    const auto scaleOf = [&](double across, double down) {
        const double roomX = (width() - (across + 1.0) * gap) / across;
        const double roomY = (height() - (down + 1.0) * gap) / down - caption;
        return std::max(std::min(roomX / sideWidth, roomY / sideHeight), 0.0);
    };
    const double beside = scaleOf(sides, 1.0), above = scaleOf(1.0, sides);
    const bool isBeside = beside >= above;
    Places places;
    places.scale = std::max(beside, above);
    const QSizeF size(sideWidth * places.scale, sideHeight * places.scale);
    const double across = isBeside ? sides : 1.0, down = isBeside ? 1.0 : sides;
    const QSizeF all(across * size.width() + (across - 1.0) * gap,
                     down * (size.height() + caption) + (down - 1.0) * gap);
    const QPointF corner(std::round((width() - all.width()) / 2.0), std::round((height() - all.height()) / 2.0));
    places.front = {corner, size};
    places.back = places.front.translated(isBeside ? size.width() + gap : 0.0,
                                          isBeside ? 0.0 : size.height() + caption + gap);
    return places;
}

void PadPicture::RequestPages()
{
    PageExcerpt excerpt;
    excerpt.scale = FindPlaces().scale;
    excerpt.pixelRatio = devicePixelRatioF();
    excerpt.size = {static_cast<int>(std::ceil(static_cast<double>(layout.page.width) * excerpt.scale)),
                    static_cast<int>(std::ceil(static_cast<double>(layout.page.height) * excerpt.scale))};
    front.renderer.SetExcerpt(excerpt);
    back.renderer.SetExcerpt(hasBack ? excerpt : PageExcerpt{});
}

QRectF PadPicture::PageAt(const QRectF& place, std::size_t index) const
{
    const double scale = place.width() / static_cast<double>(layout.Side().width);
    const Point corner = layout.CornerOf(index);
    const QSizeF size(static_cast<double>(layout.page.width) * scale,
                      static_cast<double>(layout.page.height) * scale);
    return {place.left() + corner.x * scale, place.bottom() - corner.y * scale - size.height(), size.width(),
            size.height()};
}

void PadPicture::PaintCuts(QPainter& painter, const QRectF& place) const
{
    painter.setPen(QPen(QColor(0x60, 0x60, 0x60), 1.0, Qt::DashLine));
    const QPointF center = place.center();
    if (layout.Columns() > 1) {
        painter.drawLine(QPointF(center.x(), place.top()), QPointF(center.x(), place.bottom()));
    }
    if (layout.Rows() > 1) {
        painter.drawLine(QPointF(place.left(), center.y()), QPointF(place.right(), center.y()));
    }
}

void PadPicture::PaintNumbers(QPainter& painter, const QRectF& place) const
{
    painter.setPen(QColor(0x30, 0x30, 0x30));
    for (std::size_t index = 0; index < layout.PagesOn(0); ++index) {
        const QString number = QString::number(layout.NumberOf(0, index));
        QRectF text = painter.fontMetrics().boundingRect(number);
        text.moveCenter(PageAt(place, index).center());
        text.moveBottom(PageAt(place, index).bottom() - 2.0);
        painter.fillRect(text.adjusted(-2.0, 0.0, 2.0, 0.0), QColor(0xff, 0xff, 0xff, 0xd0));
        painter.drawText(text, Qt::AlignCenter | Qt::TextDontClip, number);
    }
}

void PadPicture::PaintSide(QPainter& painter, const QRectF& place, const Side& side, bool isFront) const
{
    painter.fillRect(place.translated(shadow, shadow), QColor(0, 0, 0, 0x50));
    painter.fillRect(place, Qt::white);
    const std::size_t count = isFront ? layout.PagesOn(0) : layout.up;
    for (std::size_t index = 0; index < count && !side.image.isNull(); ++index) {
        painter.drawImage(PageAt(place, index), side.image);
    }
    PaintCuts(painter, place);
    if (isFront && layout.hasNumbers) {
        PaintNumbers(painter, place);
    }
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place);
    painter.setPen(palette().color(QPalette::WindowText));
    const QRectF caption(place.left(), place.bottom() + gap / 4.0, place.width(), CaptionHeight(*this));
    painter.drawText(caption, Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip,
                     isFront ? tr("Front side") : tr("Back side"));
}

void PadPicture::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Places places = FindPlaces();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    PaintSide(painter, places.front, front, true);
    if (hasBack) {
        PaintSide(painter, places.back, back, false);
    }
}

void PadPicture::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    RequestPages();
}

}  // namespace linealis::desktop
