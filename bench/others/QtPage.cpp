// Draws a page of strokes with QPdfWriter: qt_page STROKES PDF

#include "Strokes.h"

#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPen>

int main(int argc, char** argv)
{
    if (argc != 3) {
        return 2;
    }
    // No application object: drawing lines does not need one, and creating it takes time.
    const others::StrokesFile page(argv[1]);
    constexpr int pointsPerInch = 72;
    QPdfWriter writer(QString::fromLocal8Bit(argv[2]));
    writer.setResolution(pointsPerInch);
    writer.setPageSize(QPageSize(QSizeF(page.Head().width, page.Head().height), QPageSize::Point, QString(),
                                 QPageSize::ExactMatch));
    writer.setPageMargins({0, 0, 0, 0});
    QPainter painter;
    if (!painter.begin(&writer)) {
        return 1;
    }
    const Qt::PenCapStyle cap = page.Head().roundCaps != 0.0 ? Qt::RoundCap : Qt::FlatCap;
    double width = -1.0;
    for (const others::Stroke& stroke : page.Strokes()) {
        if (stroke.width != width) {
            width = stroke.width;
            painter.setPen(QPen(QBrush(Qt::black), width, Qt::SolidLine, cap));
        }
        const QPointF from(stroke.x1, page.Head().height - stroke.y1);
        const QPointF to(stroke.x2, page.Head().height - stroke.y2);
        if (from == to) {
            painter.drawPoint(from);  // a path omits a line of length 0
        } else {
            painter.drawLine(from, to);
        }
    }
    return painter.end() ? 0 : 1;
}
