#pragma once

#include "app/App.h"
#include "desktop/system/DesktopPlatform.h"
#include "desktop/window/GalleryView.h"
#include "desktop/window/PaperView.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <map>
#include <memory>

namespace linealis::desktop {

class ManualWindow;

/// What stands before the name of a kind among absolute paths of files.
inline const QString kindRequest = QStringLiteral("paper:");

/// The application on the screen: its windows, and the way from their events to App.
///
/// A window ends in one way, whoever ends it: what it has to store is stored at once, App and this forget it, and
/// only its memory goes later, when its events have ended. The program ends in one way too, by Quit.
class Desktop final : public QObject, private AppWindows {
    Q_OBJECT

public:
    Desktop();
    ~Desktop() override;

    /// Reads the preferences, starts the version check and shows the gallery.
    void Open();

    /// Opens the files one after the other, each as soon as no dialog is open. Behind kindRequest the name of a
    /// kind may stand, whose window is shown then.
    void OpenDocuments(const QStringList& files);

    /// Opens settings files of any kind, and pictures that carry a form, at once, without a message.
    void OpenSettings(const QStringList& files);

    /// Brings the window that was in front last to the front again, for a second start; the gallery if there is
    /// only the manual.
    void Raise();

    /// Stops the pages that are being made, rejects the dialogs that are open, and as soon as they have ended, ends
    /// every window and the program.
    void Quit();

    App& Application() { return app; }
    DesktopPlatform& OwnPlatform() { return platform; }

signals:
    /// From now on no document is taken.
    void Quitting();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show(const PaperKind& kind, PaperWindow& window) override;
    void ShowPreferences(PrefsWindow& window) override;
    bool AnyWindowOpen() const override;
    void CloseFrontWindow() override;
    void Used(const FolderItem& settingsFile) override;
    bool IsEnding() const override { return quitting; }

    PaperView& ViewOf(const PaperKind& kind, PaperWindow& window);
    void OpenDocument(const QString& path);
    /// Fills in the form of its kind with the form that a picture of a page carries.
    void OpenPicture(const FolderItem& file);
    /// Does what may change any window, as one step of that name in each that it changes.
    void DoAsStep(const QString& name, const std::function<void()>& change);
    void ShowGallery();
    /// Shows the manual at the chapter of the kind, or without one, at its beginning.
    void ShowManual(const PaperKind* kind);
    /// Asks for settings files and opens them; what is none of them is named.
    void AskForSettings();
    /// Opens the file, or shows the window of its kind with the preset laid over, as one step.
    void OpenHit(const PaperHit& hit);
    void PaperClosed(const PaperKind& kind);
    void GalleryClosed();
    void GiveMenus(QMainWindow& window, PaperView* paper);
    void Perform(const MenuItem& item, PaperView* paper);

    /// Has Proceed called between two events.
    void ProceedSoon();
    /// Does what has waited for its turn: ends the program, or opens the next document.
    void Proceed();
    void EndIfLastWindow();
    void End();

    DesktopPlatform platform;
    QByteArray manual;
    App app;
    std::map<const PaperKind*, PaperView*> views;  ///< of the open windows
    QPointer<GalleryView> galleryView;             ///< nothing once it is closed
    std::unique_ptr<ManualWindow> manualWindow;    ///< nothing until it is wanted
    QPointer<QWidget> inFront;                     ///< the window that was active last
    QStringList waitingDocuments;
    bool quitting = false;
    bool ended = false;
};

}  // namespace linealis::desktop
