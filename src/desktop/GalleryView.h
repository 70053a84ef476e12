#pragma once

#include "services/GalleryWindow.h"

#include <QMainWindow>

namespace linealis::desktop {

/// The program's first screen.
class GalleryView final : public QMainWindow {
    Q_OBJECT

public:
    explicit GalleryView(GalleryWindow& theGallery);

signals:
    void HelpWanted();
    void Closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    GalleryWindow& gallery;
};

}  // namespace linealis::desktop
