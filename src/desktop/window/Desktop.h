#pragma once

#include "app/App.h"
#include "desktop/system/DesktopPlatform.h"
#include "desktop/window/GalleryView.h"
#include "desktop/window/PaperView.h"
#include "desktop/window/PresetPictures.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <map>
#include <memory>

namespace linealis::desktop {

class ManualWindow;

/// The prefix that distinguishes the name of a paper kind from the absolute path of a file.
inline const QString kindRequest = QStringLiteral("paper:");

/// Manages the windows of the application and passes their events to App.
///
/// Every window is closed the same way, whatever the cause: it stores its state immediately, App and this class
/// forget it, and its memory is freed later, after the current event. The program always ends through Quit.
class Desktop final : public QObject, private AppWindows {
    Q_OBJECT

public:
    Desktop();
    ~Desktop() override;

    /// Reads the preferences, starts the version check, and shows the gallery.
    void Open();

    /// Opens the files one after the other, each as soon as no dialog is open. An entry can also be kindRequest
    /// followed by the name of a kind, which shows the window of that kind. Returns immediately.
    void OpenDocuments(const QStringList& files);

    /// Opens settings files of any kind, and pictures that carry a form, immediately. Shows no message box for a
    /// settings file that cannot be opened.
    void OpenSettings(const QStringList& files);

    /// Brings the window that was last active to the front, for a second start. Shows the gallery if no window but
    /// the manual is open.
    void Raise();

    /// Ends the program: stops the pages in progress, rejects the open dialogs, and once they have ended, closes
    /// all windows and exits the event loop.
    void Quit();

    App& Application() { return app; }
    DesktopPlatform& OwnPlatform() { return platform; }

signals:
    /// Emitted when the program starts to end. From now on it opens no documents.
    void Quitting();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show(const PaperKind& kind, PaperWindow& window) override;
    void PrepareEmpty(PaperWindow& window) override;
    void ShowPreferences(PrefsWindow& window) override;
    bool AnyWindowOpen() const override;
    void CloseFrontWindow() override;
    void Used(const FolderItem& settingsFile) override;
    bool IsEnding() const override { return quitting; }

    /// Returns the view of the window, which is created if needed, with the steps that the window can undo.
    PaperView& ViewOf(const PaperKind& kind, PaperWindow& window, std::unique_ptr<FormHistory> steps = nullptr);
    /// Makes all windows anew, in the chosen language, with what they show and can undo. A window that is making a
    /// page stays as it is.
    void ShowLanguage();
    void OpenDocument(const QString& path);
    /// Reads the form that a picture of a page carries into the window of its kind. Shows a message if that fails.
    void OpenPicture(const FolderItem& file);
    /// Makes a change that can affect any window. It becomes one undo step of that name in each affected window.
    void DoAsStep(const QString& name, const std::function<void()>& change);
    void ShowGallery();
    /// Shows the manual at the chapter of the kind, or at its beginning if `kind` is null.
    void ShowManual(const PaperKind* kind);
    /// Asks for settings files and opens them. Shows a message for each file that is not a settings file.
    void AskForSettings();
    /// Opens the settings file of the hit, or loads its preset into the window of its kind, as one undo step.
    void OpenHit(const PaperHit& hit);
    /// Lets the user choose a preset from pictures, and opens it. Begins at those of the kind, unless `kind` is
    /// null.
    void ShowPicker(const PaperKind* kind, QWidget* parent);
    void PaperClosed(const PaperKind& kind);
    void GalleryClosed();
    /// Installs the menu bar. `paper` is the window as a paper view; null for the gallery.
    void GiveMenus(QMainWindow& window, PaperView* paper);
    void Perform(const MenuItem& item, PaperView* paper);

    /// Schedules a call of Proceed after the current event.
    void ProceedSoon();
    /// Ends the program or opens the next document, unless a dialog is open.
    void Proceed();
    void EndIfLastWindow();
    /// Closes all windows and the application. Only the first call has an effect.
    void End();

    DesktopPlatform platform;
    QByteArray manual;
    App app;
    std::map<const PaperKind*, PaperView*> views;  ///< the open paper windows
    QPointer<GalleryView> galleryView;             ///< null while it is closed
    PresetPictures presetPictures;
    std::unique_ptr<ManualWindow> manualWindow;  ///< null until it is shown for the first time
    QPointer<QWidget> inFront;                   ///< the window that was last active, except the manual
    QStringList waitingDocuments;                ///< for OpenDocument, in this order
    bool quitting = false;
    bool ended = false;
};

}  // namespace linealis::desktop
