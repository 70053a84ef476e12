#include "desktop/form/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

namespace linealis::desktop {

namespace {

constexpr int mostCharacters = 38;  // limit of the size hint, in average characters

}  // namespace

ElidedLabel::ElidedLabel(Qt::TextElideMode mode) : elideMode(mode) {}

QSize ElidedLabel::minimumSizeHint() const
{
    return {40, QLabel::minimumSizeHint().height()};
}

QSize ElidedLabel::sizeHint() const
{
    return QLabel::sizeHint().boundedTo({mostCharacters * fontMetrics().averageCharWidth(), QWIDGETSIZE_MAX});
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), elideMode, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                          foregroundRole());
}

}  // namespace linealis::desktop
