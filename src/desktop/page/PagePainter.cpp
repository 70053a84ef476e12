#include "desktop/page/PagePainter.h"

#include "desktop/system/Text.h"
#include "pdf/StandardFonts.h"

#include <QFont>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

namespace linealis::desktop {

namespace {

QColor ColorOf(const PageColor& color)
{
    const auto channel = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(channel(color.red), channel(color.green), channel(color.blue));
}

QPainterPath OutlineOf(PagePath path)
{
    QPainterPath made;
    for (const PathSegment& segment : path) {
        const QPointF to(segment.to.x, segment.to.y);
        switch (segment.operation) {
        case PageOperator::Move:
            made.moveTo(to);
            break;
        case PageOperator::Curve:
            made.cubicTo({segment.control1.x, segment.control1.y}, {segment.control2.x, segment.control2.y}, to);
            break;
        default:
            made.lineTo(to);
        }
    }
    return made;
}

/// Returns the middle of the pixel that contains a coordinate.
double MiddleOfPixel(double place)
{
    return std::floor(place) + 0.5;
}

Qt::PenCapStyle CapOf(int cap)
{
    constexpr std::array styles = {Qt::FlatCap, Qt::RoundCap, Qt::SquareCap};
    return styles.at(static_cast<std::size_t>(std::clamp(cap, 0, 2)));
}

QFont::StyleHint HintOf(const FontFamily& family)
{
    return family.generic == "monospace"    ? QFont::TypeWriter
           : family.generic == "sans-serif" ? QFont::SansSerif
           : family.generic == "serif"      ? QFont::Serif
                                            : QFont::AnyStyle;
}

/// The pixel size at which text outlines are made. They are scaled down afterward, so that no hinting for the
/// screen distorts them.
constexpr int outlineSize = 1000;

QFont FontOf(int font)
{
    const StandardFont& face = StandardFontOf(font);
    QStringList families;
    for (const std::string_view name : face.family.names) {
        families << ToQt(name);
    }
    QFont made;
    made.setFamilies(families);
    made.setStyleHint(HintOf(face.family));
    made.setBold(face.isBold);
    made.setItalic(face.isSlanted);
    made.setPixelSize(outlineSize);
    made.setHintingPreference(QFont::PreferNoHinting);
    return made;
}

}  // namespace

PagePainter::PagePainter(QPainter& thePainter, double pageHeight, ThinLines theThinLines)
    : painter(thePainter), points(QTransform(1.0, 0.0, 0.0, -1.0, 0.0, pageHeight) * thePainter.transform()),
      thinLines(theThinLines)
{
    painter.setRenderHint(QPainter::Antialiasing);
    PagePainter::Scale(1.0, 1.0);
}

bool PagePainter::Scale(double sx, double sy)
{
    painter.setTransform(QTransform::fromScale(sx, sy) * points);
    toPixels = painter.deviceTransform();
    fromPixels = toPixels.inverted();
    pixels = std::sqrt(std::abs(toPixels.determinant()));  // the geometric mean of both directions
    hasPen = false;
    return GoesOn();
}

bool PagePainter::Stroke(PagePath path, const PagePen& pen)
{
    StrokePath(path, pen);
    return GoesOn();
}

bool PagePainter::Fill(PagePath path, const PageColor& color)
{
    painter.fillPath(OutlineOf(path), ColorOf(color));
    return GoesOn();
}

bool PagePainter::FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen)
{
    painter.fillPath(OutlineOf(path), ColorOf(color));
    StrokePath(path, pen);
    return GoesOn();
}

bool PagePainter::Text(const PageText& text)
{
    const auto& [a, b, c, d, e, f] = text.matrix;
    QPainterPath outline;
    outline.addText(0.0, 0.0, FontOf(text.font), ToQt(text.utf8));
    // Outlines of Qt have y pointing down, the content has it pointing up: hence the negative factor.
    const double size = text.size / outlineSize;
    const QTransform place = QTransform::fromScale(size, -size) * QTransform(a, b, c, d, e, f);
    painter.fillPath(place.map(outline), ColorOf(text.color));
    return GoesOn();
}

void PagePainter::SetPen(const PagePen& pen, bool isDot)
{
    if (hasPen && pen == lastPen && isDot == lastWasDot) {
        return;
    }
    constexpr double leastWidened = 2.0;  // pixels
    const double wanted = pen.width * pixels;
    const double least = thinLines == ThinLines::Faded ? 1.0 : thinLines == ThinLines::Widened ? leastWidened : 0.0;
    const double width = pixels > 0.0 ? std::max(wanted, least) / pixels : pen.width;
    snaps = thinLines == ThinLines::Faded && wanted < 1.0;
    QColor color = ColorOf(pen.color);
    // A width of 0 means the thinnest line of the device, a full pixel, so it does not fade. The ink of a dot is
    // proportional to the square of its width.
    if (snaps && wanted > 0.0) {
        color.setAlphaF(static_cast<float>(std::max(isDot ? wanted * wanted : wanted, faintestStroke)));
    }
    QPen made(color, width, Qt::SolidLine, CapOf(pen.cap), Qt::MiterJoin);
    made.setMiterLimit(10.0);  // the default of PDF, which the content never changes
    // Qt counts dashes in multiples of the pen width.
    if (width <= 0.0) {
        made.setCosmetic(true);
    } else if (pen.dashOn > 0.0 || pen.dashOff > 0.0) {
        made.setDashPattern({pen.dashOn / width, pen.dashOff / width});
        made.setDashOffset(pen.dashPhase / width);
    }
    painter.setPen(made);
    lastPen = pen;
    lastWasDot = isDot;
    hasPen = true;
}

void PagePainter::StrokePath(PagePath path, const PagePen& pen)
{
    const bool isLine = path.size() == 2 && path[1].operation == PageOperator::Line;
    const QPointF from(path[0].to.x, path[0].to.y), to(path.back().to.x, path.back().to.y);
    SetPen(pen, isLine && from == to);
    if (isLine) {
        StrokeLine(from, to);
    } else {
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(snaps && IsAlongAxes(path) ? Snapped(OutlineOf(path)) : OutlineOf(path));
    }
}

QPainterPath PagePainter::Snapped(QPainterPath path) const
{
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPointF place = toPixels.map(QPointF(path.elementAt(i)));
        const QPointF middle = fromPixels.map(QPointF(MiddleOfPixel(place.x()), MiddleOfPixel(place.y())));
        path.setElementPositionAt(i, middle.x(), middle.y());
    }
    return path;
}

void PagePainter::StrokeLine(QPointF from, QPointF to)
{
    if (from == to) {
        painter.drawPoint(from);
        return;
    }
    const bool isUpright = from.x() == to.x();
    if (snaps && (isUpright || from.y() == to.y())) {
        QPointF first = toPixels.map(from), second = toPixels.map(to);
        if (isUpright) {
            first.setX(MiddleOfPixel(first.x()));
            second.setX(first.x());
        } else {
            first.setY(MiddleOfPixel(first.y()));
            second.setY(first.y());
        }
        from = fromPixels.map(first);
        to = fromPixels.map(second);
    }
    painter.drawLine(from, to);
}

PageDamage PaintPage(QPainter& painter, const QSizeF& paper, std::string_view content,
                     PagePainter::ThinLines thinLines)
{
    painter.save();
    const QRectF page(QPointF(0.0, 0.0), paper);
    painter.fillRect(page, Qt::white);
    painter.setClipRect(page);
    PagePainter sink(painter, paper.height(), thinLines);
    PageDamage damage = ReadPage(content, sink);
    painter.restore();
    return damage;
}

}  // namespace linealis::desktop
