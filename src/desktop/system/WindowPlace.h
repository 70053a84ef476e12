#pragma once

#include <QRect>
#include <QSize>

class QWidget;

namespace linealis::desktop {

/// The approximate size of what the window manager adds around a window, in pixels.
inline constexpr QSize windowDecorations(8, 40);

/// Returns the rectangle, moved into the area by the shortest way. If it is larger than the area, the upper left
/// corners coincide.
QRect MovedInto(const QRect& rectangle, const QRect& area);

/// Moves the window so that its center is that of the place, in pixels of the desktop.
void CenterOver(QWidget& window, const QRect& place);

/// Moves the window by the shortest way so that all of it is on one screen: that of its center, or the primary one
/// if its center is on none, as after a screen has been removed.
void BringOnScreen(QWidget& window);

}  // namespace linealis::desktop
