#pragma once

#include <QPixmap>
#include <QSize>
#include <string_view>

namespace linealis::desktop {

/// Returns a picture of the gallery by its file name, scaled to fit into `size`, in device-independent pixels. If
/// `pixelRatio` is above 1, uses the file with twice the resolution.
QPixmap GalleryPicture(std::string_view name, const QSize& size, double pixelRatio);

}  // namespace linealis::desktop
