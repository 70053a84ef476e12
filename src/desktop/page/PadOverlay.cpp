#include "desktop/page/PadOverlay.h"

#include "desktop/system/Text.h"

#include <QDate>
#include <algorithm>

namespace linealis::desktop {

namespace {

const QColor cutColor(0x60, 0x60, 0x60);
const QColor wasteColor(0xec, 0xec, 0xec);  // of what is cut off
const QColor sheetColor(0x1f, 0x6f, 0xc4);

QSizeF SizeOf(const PaperSize& paper)
{
    return {static_cast<double>(paper.width), static_cast<double>(paper.height)};
}

/// Paints a text with its middle at the place, on white, so that it is read on any page.
void PaintLabel(QPainter& painter, const QPointF& middle, const QString& text)
{
    QRectF around = painter.fontMetrics().boundingRect(text);
    around.moveCenter(middle);
    painter.fillRect(around.adjusted(-2.0, 0.0, 2.0, 0.0), QColor(0xff, 0xff, 0xff, 0xd0));
    painter.drawText(around, Qt::AlignCenter | Qt::TextDontClip, text);
}

/// Paints the numbers at the bottom and the dates at the top of pages on a side of that size.
void PaintStamps(QPainter& painter, const QRectF& place, const PaperSize& side, const PadLayout& layout,
                 const std::vector<NumberedPlace>& pages)
{
    const double scale = place.width() / static_cast<double>(side.width);
    const double fromEdge = 2.0 + painter.fontMetrics().height() / 2.0;
    const QSizeF size = SizeOf(layout.page) * scale;
    painter.setPen(QColor(0x30, 0x30, 0x30));
    for (const NumberedPlace& page : pages) {
        const double middle = place.left() + page.corner.x * scale + size.width() / 2.0;
        const double bottom = place.bottom() - page.corner.y * scale;
        if (layout.hasNumbers) {
            PaintLabel(painter, {middle, bottom - fromEdge}, QString::number(page.number));
        }
        if (layout.firstDate) {
            const QDate date =
                QDate(1970, 1, 1)
                    .addDays(layout.firstDate->time_since_epoch().count() + static_cast<qint64>(page.number) - 1);
            PaintLabel(painter, {middle, bottom - size.height() + fromEdge}, date.toString(Qt::ISODate));
        }
    }
}

/// Paints a line in the middle of the side, from edge to edge.
void PaintMiddle(QPainter& painter, const QRectF& place, Qt::Orientation direction)
{
    const QPointF center = place.center();
    painter.setPen(QPen(cutColor, 1.0, Qt::DashLine));
    if (direction == Qt::Vertical) {
        painter.drawLine(QPointF(center.x(), place.top()), QPointF(center.x(), place.bottom()));
    } else {
        painter.drawLine(QPointF(place.left(), center.y()), QPointF(place.right(), center.y()));
    }
}

void Paint(QPainter& painter, const QRectF& place, const PadLayout& layout, bool isFront)
{
    if (layout.Columns() > 1) {
        PaintMiddle(painter, place, Qt::Vertical);
    }
    if (layout.Rows() > 1) {
        PaintMiddle(painter, place, Qt::Horizontal);
    }
    if (isFront) {
        std::vector<NumberedPlace> pages;
        for (std::size_t page = 0; page < layout.PagesOn(0); ++page) {
            pages.push_back({layout.NumberOf(0, page), layout.CornerOf(page)});
        }
        PaintStamps(painter, place, layout.Side(), layout, pages);
    }
}

void Paint(QPainter& painter, const QRectF& place, const Booklet& booklet, bool isFront)
{
    PaintMiddle(painter, place, Qt::Vertical);
    PaintStamps(painter, place, booklet.Side(), booklet.pad, booklet.PlacesOn(0, isFront));
}

/// Returns what a sheet shows of the glued poster, in points from its upper left corner.
QRectF ShownBy(const Poster& poster, std::size_t column, std::size_t row)
{
    const QSizeF sheet = SizeOf(poster.sheet), page = SizeOf(poster.page);
    const Point corner = poster.CornerOf(column, row);
    const QPointF place(posterMargin - corner.x, corner.y + page.height() - sheet.height() + posterMargin);
    return {place, sheet - QSizeF(2.0 * posterMargin, 2.0 * posterMargin)};
}

void Paint(QPainter& painter, const QRectF& place, const Poster& poster, bool /*isFront*/)
{
    const double scale = place.width() / AreaOf(poster).width();
    const auto onPicture = [&](const QRectF& shown) {
        return QRectF(place.topLeft() + shown.topLeft() * scale, shown.size() * scale);
    };
    const QRectF page(place.topLeft(), SizeOf(poster.page) * scale);
    painter.setClipRegion(QRegion(place.toAlignedRect()) - page.toAlignedRect());
    painter.fillRect(place, wasteColor);
    painter.setClipping(false);
    QColor sharedColor = sheetColor;
    sharedColor.setAlpha(0x38);
    const double strip = poster.overlap * scale;
    for (std::size_t column = 1; column < poster.Columns(); ++column) {
        const QRectF first = onPicture(ShownBy(poster, column, 0));
        painter.fillRect(QRectF(first.left(), place.top(), strip, place.height()), sharedColor);
    }
    for (std::size_t row = 1; row < poster.Rows(); ++row) {
        const QRectF first = onPicture(ShownBy(poster, 0, row));
        painter.fillRect(QRectF(place.left(), first.top(), place.width(), strip), sharedColor);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.drawRect(page);
    for (std::size_t row = 0; row < poster.Rows(); ++row) {
        for (std::size_t column = 0; column < poster.Columns(); ++column) {
            const QRectF sheet = onPicture(ShownBy(poster, column, row));
            painter.setPen(QPen(sheetColor, 1.0));
            painter.drawRect(sheet);
            const QString name = ToQt(Poster::NameOf(column, row));
            if (painter.fontMetrics().boundingRect(name).width() + 4.0 < sheet.width()) {
                PaintLabel(painter, sheet.center(), name);
            }
        }
    }
}

QStringList Captions(const PadLayout& /*layout*/, bool isFront)
{
    return {isFront ? Translated("Front side") : Translated("Back side")};
}

QStringList Captions(const Booklet& booklet, bool isFront)
{
    QStringList captions = {Translated("Blank"), Translated("Blank")};
    for (const NumberedPlace& place : booklet.PlacesOn(0, isFront)) {
        captions[place.corner.x > 0.0 ? 1 : 0] = Translated("Page %1").arg(place.number);
    }
    return captions;
}

QStringList Captions(const Poster& /*poster*/, bool /*isFront*/)
{
    return {Translated("All sheets, glued together")};
}

}  // namespace

QSizeF AreaOf(const Poster& poster)
{
    const QRectF last = ShownBy(poster, poster.Columns() - 1, poster.Rows() - 1);
    return {last.right(), last.bottom()};
}

void PaintOverlay(QPainter& painter, const QRectF& place, const PadPlan& plan, std::size_t side)
{
    std::visit([&](const auto& sheets) { Paint(painter, place, sheets, side == 0); }, plan.sheets);
}

QStringList CaptionsOf(const PadPlan& plan, std::size_t side)
{
    return std::visit([&](const auto& sheets) { return Captions(sheets, side == 0); }, plan.sheets);
}

}  // namespace linealis::desktop
