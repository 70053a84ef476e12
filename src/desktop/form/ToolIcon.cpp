#include "desktop/form/ToolIcon.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace linealis::desktop {

namespace {

constexpr double gridSize = 16.0;  // every icon is drawn on a grid of 16 by 16 units, y downward

void AddLines(QPainterPath& path, std::initializer_list<QPointF> points)
{
    path.moveTo(*points.begin());
    for (const QPointF& point : points) {
        path.lineTo(point);
    }
}

/// An arrow to the left that comes from below.
QPainterPath ArrowBack()
{
    QPainterPath path;
    AddLines(path, {{6, 3}, {2.5, 6.5}, {6, 10}});
    path.moveTo(2.5, 6.5);
    path.lineTo(10, 6.5);
    path.arcTo(QRectF(6.75, 6.5, 6.5, 6.5), 90, -180);
    path.lineTo(6.5, 13);
    return path;
}

QPainterPath LinesOf(ToolIcon icon)
{
    QPainterPath path;
    switch (icon) {
    case ToolIcon::Gallery:
        for (const QPointF corner : {QPointF(2, 2), QPointF(9, 2), QPointF(2, 9), QPointF(9, 9)}) {
            path.addRoundedRect(QRectF(corner, QSizeF(5, 5)), 1, 1);
        }
        break;
    case ToolIcon::Presets:  // a sheet on another
        path.addRect(QRectF(5.5, 1.5, 8, 10));
        AddLines(path, {{2.5, 4.5}, {2.5, 14.5}, {10.5, 14.5}});
        break;
    case ToolIcon::Undo:
        path = ArrowBack();
        break;
    case ToolIcon::Redo:
        path = QTransform(-1, 0, 0, 1, gridSize, 0).map(ArrowBack());
        break;
    case ToolIcon::Reset:  // an arrow in a circle
        path.arcMoveTo(QRectF(2.5, 2.5, 11, 11), 40);
        path.arcTo(QRectF(2.5, 2.5, 11, 11), 40, 290);
        AddLines(path, {{12.6, 1.2}, {12.2, 4.6}, {8.8, 4.4}});
        break;
    case ToolIcon::Fit:  // a sheet between four corners
        path.addRect(QRectF(5.5, 4.5, 5, 7));
        AddLines(path, {{2, 4.5}, {2, 1.5}, {5, 1.5}});
        AddLines(path, {{11, 1.5}, {14, 1.5}, {14, 4.5}});
        AddLines(path, {{14, 11.5}, {14, 14.5}, {11, 14.5}});
        AddLines(path, {{5, 14.5}, {2, 14.5}, {2, 11.5}});
        break;
    case ToolIcon::Margins:  // a sheet and the area inside its margins
        path.addRect(QRectF(2.5, 1.5, 11, 13));
        path.addRect(QRectF(5.5, 4.5, 5, 7));
        break;
    case ToolIcon::Rulers:
        path.addRect(QRectF(1.5, 5.5, 13, 5.5));
        for (const double x : {4.1, 6.7, 9.3, 11.9}) {
            AddLines(path, {{x, 5.5}, {x, 8}});
        }
        break;
    case ToolIcon::Link:  // two links of a chain
        path.addRoundedRect(QRectF(1.5, 5.5, 7.5, 5), 2.5, 2.5);
        path.addRoundedRect(QRectF(7, 5.5, 7.5, 5), 2.5, 2.5);
        break;
    case ToolIcon::FromAbove:  // an arrow down from a line
        AddLines(path, {{3, 3}, {13, 3}});
        AddLines(path, {{8, 5.5}, {8, 13}});
        AddLines(path, {{4.5, 9.5}, {8, 13}, {11.5, 9.5}});
        break;
    case ToolIcon::Today:  // a leaf of a calendar with one day
        path.addRect(QRectF(2.5, 3.5, 11, 10.5));
        AddLines(path, {{2.5, 6.5}, {13.5, 6.5}});
        AddLines(path, {{5.5, 1.8}, {5.5, 3.5}});
        AddLines(path, {{10.5, 1.8}, {10.5, 3.5}});
        path.addRect(QRectF(7, 9, 2, 2));
        break;
    case ToolIcon::Center:  // lines of text about an axis
        AddLines(path, {{8, 1.5}, {8, 14.5}});
        AddLines(path, {{2.5, 5}, {13.5, 5}});
        AddLines(path, {{4.5, 11}, {11.5, 11}});
        break;
    case ToolIcon::Warning:  // a triangle with an exclamation mark
        AddLines(path, {{8, 2}, {14.5, 13.5}, {1.5, 13.5}, {8, 2}});
        AddLines(path, {{8, 6.5}, {8, 9.5}});
        AddLines(path, {{8, 11.4}, {8, 11.5}});
        break;
    }
    return path;
}

class ToolIconEngine final : public QIconEngine {
public:
    explicit ToolIconEngine(ToolIcon theIcon) : icon(theIcon) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        constexpr double penWidth = 1.3;
        const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(place.topLeft());
        painter->scale(place.width() / gridSize, place.height() / gridSize);
        painter->setPen(QPen(QApplication::palette().color(group, QPalette::ButtonText), penWidth, Qt::SolidLine,
                             Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(LinesOf(icon));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new ToolIconEngine(icon); }

private:
    ToolIcon icon;
};

}  // namespace

QIcon MakeToolIcon(ToolIcon icon)
{
    return QIcon(new ToolIconEngine(icon));
}

}  // namespace linealis::desktop
