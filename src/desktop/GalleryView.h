#pragma once

#include "services/GalleryWindow.h"

#include <QMainWindow>

namespace linealis::desktop {

/// The program's first screen.
class GalleryView final : public QMainWindow {
    Q_OBJECT

public:
    explicit GalleryView(GalleryWindow& theGallery);

    /// Centres the window on the first screen, once it has its menus.
    void Place();

signals:
    void HelpWanted();
    void Closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    GalleryWindow& gallery;
};

}  // namespace linealis::desktop
