#pragma once

#include "desktop/window/PaperSearch.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QString>
#include <QThreadPool>
#include <atomic>

namespace linealis::desktop {

/// Paints a corner of the pages of presets near its true size, in the background, and keeps the pictures in memory.
class PresetPictures final : public QObject {
    Q_OBJECT

public:
    /// The width and height of a picture in device-independent pixels. It shows 35 mm of the page.
    static constexpr int side = 112;

    explicit PresetPictures(QObject* parent = nullptr);
    ~PresetPictures() override;
    PresetPictures(const PresetPictures&) = delete;
    PresetPictures& operator=(const PresetPictures&) = delete;

    /// Returns the picture of a hit that is a preset. If it does not exist yet, returns a null image and starts to
    /// paint it. A preset of the user that has been saved again since gets a new picture.
    QImage PictureOf(const PaperHit& hit, double pixelRatio);

signals:
    /// Emitted after a picture that PictureOf could not return has been painted.
    void Painted();

private:
    QHash<QString, QImage> pictures;  ///< null while a picture is being painted
    std::atomic<bool> stops = false;  ///< aborts the painting
    QThreadPool pool;                 ///< one thread
};

}  // namespace linealis::desktop
