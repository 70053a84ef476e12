#include "desktop/window/GalleryPicture.h"

#include "desktop/system/Text.h"

namespace linealis::desktop {

QPixmap GalleryPicture(std::string_view name, const QSize& size, double pixelRatio)
{
    QString file = QStringLiteral(":/gallery/") + ToQt(name);
    if (pixelRatio > 1.0) {
        file.replace(QLatin1String(".png"), QLatin1String("@2x.png"));
    }
    QPixmap picture(file);
    picture.setDevicePixelRatio(1.0);  // Qt sets 2 for an "@2x" file; scale in physical pixels
    const QSize points = size * pixelRatio;
    if (picture.size() != points) {
        picture = picture.scaled(points, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    picture.setDevicePixelRatio(pixelRatio);
    return picture;
}

}  // namespace linealis::desktop
