#include "desktop/system/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace linealis::desktop {

namespace {

/// Returns the place of the window with its decorations, which it does not have before it is shown.
QRect FrameOf(const QWidget& window)
{
    return {window.pos(), window.size() + windowDecorations};
}

}  // namespace

QRect MovedInto(const QRect& rectangle, const QRect& area)
{
    const auto moved = [](int from, int length, int areaFrom, int areaLength) {
        return std::max(std::min(from, areaFrom + areaLength - length), areaFrom);
    };
    return {moved(rectangle.x(), rectangle.width(), area.x(), area.width()),
            moved(rectangle.y(), rectangle.height(), area.y(), area.height()), rectangle.width(),
            rectangle.height()};
}

void CenterOver(QWidget& window, const QRect& place)
{
    QRect frame = FrameOf(window);
    frame.moveCenter(place.center());
    window.move(frame.topLeft());
}

void BringOnScreen(QWidget& window)
{
    const QRect frame = FrameOf(window);
    const QScreen* const found = QGuiApplication::screenAt(frame.center());
    const QScreen& screen = found == nullptr ? *QGuiApplication::primaryScreen() : *found;
    const QRect moved = MovedInto(frame, screen.availableGeometry());
    if (moved != frame) {
        window.move(moved.topLeft());
    }
}

}  // namespace linealis::desktop
