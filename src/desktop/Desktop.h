#pragma once

#include "app/App.h"
#include "desktop/DesktopPlatform.h"
#include "desktop/GalleryView.h"
#include "desktop/PaperView.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <map>

namespace linealis::desktop {

/// The application on the screen: its windows, and the way from their events to App.
class Desktop final : public QObject, private AppWindows {
    Q_OBJECT

public:
    Desktop();
    ~Desktop() override;

    /// Reads the preferences, starts the version check and shows the gallery.
    void Open();
    void OpenDocument(const QString& path);
    /// Brings the program to the front, for a second start.
    void Raise();
    void Quit();

    App& Application() { return app; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show(const PaperKind& kind, PaperWindow& window) override;
    void ShowPreferences(PrefsWindow& window) override;
    bool AnyWindowOpen() const override;
    void CloseFrontWindow() override;

    PaperView& ViewOf(const PaperKind& kind, PaperWindow& window);
    void PaperClosed(const PaperKind& kind);
    void GiveMenus(QMainWindow& window, PaperView* paper);
    void Perform(const MenuItem& item, PaperView* paper);
    void EndIfLastWindow();

    DesktopPlatform platform;
    QByteArray manual;
    App app;
    std::map<const PaperKind*, QPointer<PaperView>> views;
    QPointer<GalleryView> galleryView;
    bool quitting = false;
};

}  // namespace linealis::desktop
