#include "desktop/form/ColorSwatch.h"

#include <QPainter>

namespace linealis::desktop {

ColorSwatch::ColorSwatch(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ColorSwatch::SetColor(Color newColor)
{
    color = newColor;
    update();
}

QSize ColorSwatch::sizeHint() const
{
    return {40, 22};
}

void ColorSwatch::paintEvent(QPaintEvent* /*event*/)
{
    constexpr int frame = 2;
    QPainter painter(this);
    painter.fillRect(rect(), QColor(color.red, color.green, color.blue));
    painter.setPen(QPen(Qt::black, frame, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(frame / 2, frame / 2, -frame / 2, -frame / 2));
    painter.setPen(palette().color(QPalette::WindowText));  // a black frame alone is invisible on a dark form
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (hasFocus()) {
        painter.setPen(QPen(palette().highlight().color(), 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(frame + 1, frame + 1, -frame - 2, -frame - 2));
    }
}

}  // namespace linealis::desktop
