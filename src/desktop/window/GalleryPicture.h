#pragma once

#include <QPixmap>
#include <QSize>
#include <string_view>

namespace linealis::desktop {

/// A picture of the gallery, given by its file name, in that size in pixels of the screen. On a screen of more than
/// one point a pixel it is made of the picture that is twice as fine.
QPixmap GalleryPicture(std::string_view name, const QSize& size, double pixelRatio);

}  // namespace linealis::desktop
