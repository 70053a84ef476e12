#include "desktop/PagePainter.h"

#include "desktop/Text.h"
#include "pdf/StandardFonts.h"

#include <QFont>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

namespace linealis::desktop {

namespace {

QColor ToQt(const PageColor& color)
{
    const auto channel = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(channel(color.red), channel(color.green), channel(color.blue));
}

QPainterPath ToQt(PagePath path)
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

/// Outlines are taken at this size and scaled, so that no hinting for a screen moves them.
constexpr int outlineSize = 1000;

QFont FontOf(int font)
{
    const StandardFont& face = StandardFontOf(font);
    QStringList families;
    for (const std::string_view name : face.family.names) {
        families << desktop::ToQt(name);
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

PagePainter::PagePainter(QPainter& thePainter, double pageHeight, double thinnestLine)
    : painter(thePainter), points(QTransform(1.0, 0.0, 0.0, -1.0, 0.0, pageHeight) * thePainter.transform()),
      thinnest(thinnestLine)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(points);
}

bool PagePainter::Scale(double sx, double sy)
{
    painter.setTransform(QTransform::fromScale(sx, sy) * points);
    scale = std::sqrt(std::abs(sx * sy));
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
    painter.fillPath(ToQt(path), ToQt(color));
    return GoesOn();
}

bool PagePainter::FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen)
{
    painter.fillPath(ToQt(path), ToQt(color));
    StrokePath(path, pen);
    return GoesOn();
}

bool PagePainter::Text(const PageText& text)
{
    const auto& [a, b, c, d, e, f] = text.matrix;
    QPainterPath outline;
    outline.addText(0.0, 0.0, FontOf(text.font), desktop::ToQt(text.utf8));
    const double size = text.size / outlineSize;
    const QTransform place = QTransform::fromScale(size, -size) * QTransform(a, b, c, d, e, f);
    painter.fillPath(place.map(outline), ToQt(text.color));
    return GoesOn();
}

void PagePainter::SetPen(const PagePen& pen)
{
    if (hasPen && pen == lastPen) {
        return;
    }
    const double width = scale > 0.0 ? std::max(pen.width, thinnest / scale) : pen.width;
    QPen made(ToQt(pen.color), width, Qt::SolidLine, CapOf(pen.cap), Qt::MiterJoin);
    made.setMiterLimit(10.0);  // what a page begins with
    if (width <= 0.0) {
        made.setCosmetic(true);
    } else if (pen.dashOn > 0.0 || pen.dashOff > 0.0) {
        made.setDashPattern({pen.dashOn / width, pen.dashOff / width});
        made.setDashOffset(pen.dashPhase / width);
    }
    painter.setPen(made);
    lastPen = pen;
    hasPen = true;
}

void PagePainter::StrokePath(PagePath path, const PagePen& pen)
{
    SetPen(pen);
    if (path.size() == 2 && path[1].operation == PageOperator::Line) {
        const QPointF from(path[0].to.x, path[0].to.y);
        const QPointF to(path[1].to.x, path[1].to.y);
        if (from == to) {
            painter.drawPoint(from);
        } else {
            painter.drawLine(from, to);
        }
    } else {
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(ToQt(path));
    }
}

PageDamage PaintPage(QPainter& painter, const QSizeF& paper, std::string_view content, double thinnest)
{
    painter.save();
    const QRectF page(QPointF(0.0, 0.0), paper);
    painter.fillRect(page, Qt::white);
    painter.setClipRect(page);
    PagePainter sink(painter, paper.height(), thinnest);
    PageDamage damage = ReadPage(content, sink);
    painter.restore();
    return damage;
}

}  // namespace linealis::desktop
