#pragma once

#include "app/MenuBar1.h"
#include "app/Preferences.h"
#include "graph/AxisFunctions.h"
#include "kinds/PaperKinds.h"
#include "pdf/Geometry.h"
#include "services/GalleryWindow.h"
#include "services/PrefsWindow.h"
#include "services/VersionCheckThread.h"
#include "text/Numbers.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace linealis {

/// What the application asks of its front end: windows on a screen.
class AppWindows {
public:
    AppWindows() = default;
    virtual ~AppWindows() = default;
    AppWindows(const AppWindows&) = delete;
    AppWindows& operator=(const AppWindows&) = delete;

    /// Shows the window of the kind, made if it was not there, and brings it to the front.
    virtual void Show(const PaperKind& kind, PaperWindow& window) = 0;
    virtual void ShowPreferences(PrefsWindow& window) = 0;
    virtual bool AnyWindowOpen() const = 0;
    virtual void CloseFrontWindow() = 0;
    /// The user has opened or saved a settings file. Presets and last settings do not count.
    virtual void Used(const FolderItem& settingsFile) = 0;
    /// Whether the program is about to end.
    virtual bool IsEnding() const = 0;
};

/// The application: starts and ends the program, opens the paper windows, and hands a settings file that the system
/// passes in to the right one.
class App {
public:
    /// `theManual` is the PDF document behind Help.
    App(Platform& thePlatform, AppWindows& theWindows, std::string_view theManual);

    void Event_Open();
    void Event_Close();

    /// Stores what the end of every window and of the program would, while they go on.
    void Store();
    void Event_OpenDocument(const FolderItem& file);

    /// Opens a settings file of any kind in its window, without a message. Null if its extension is none of them.
    PaperWindow* OpenSettings(const FolderItem& file);

    /// Shows the window of a kind, each at most once. It begins with the user's default, if there is one, and keeps
    /// its values until it is closed.
    PaperWindow& ShowPaper(const PaperKind& kind);

    /// The front end tells that the window of the kind has been closed. What is to be kept of its form is stored,
    /// and the front end gets the paper window, to keep it as long as anything still shows it.
    std::unique_ptr<PaperWindow> PaperClosed(const PaperKind& kind);

    /// A menu item that is not standard text editing. `front` is the paper window in front, or none.
    void Perform(const MenuItem& item, PaperWindow* front);

    void DoHelp();
    void CheckForTheLatestVersion();

    GalleryWindow& Gallery() { return gallery; }
    static ProgramVersion Version();

    // Small operations that live where they are used.
    static std::string mystring(double value) { return linealis::mystring(value); }
    static std::string myformatstring(double value, std::string_view pattern)
    {
        return linealis::myformatstring(value, pattern);
    }
    static std::string mytrigstring(double value) { return linealis::mytrigstring(value); }
    static Point FindCenterOfTwoPoints(double x1, double y1, double x2, double y2)
    {
        return linealis::FindCenterOfTwoPoints(x1, y1, x2, y2);
    }
    static double ComputeInverseERF(double p) { return linealis::ComputeInverseERF(p); }
    static double ComputeERF(double x) { return linealis::ComputeERF(x); }
    static double factorial(int n) { return linealis::factorial(n); }

private:
    void OpenFromGallery(std::size_t entry);
    void ShowAbout();
    /// Has the window open or save its settings file, and tells which one if that went well.
    void Remember(PaperWindow& window, bool (PaperWindow::*action)());
    FolderItem HelpFile() const;
    FolderItem PrefsFile() const;
    FolderItem LastSettingsFile() const;
    FolderItem DefaultFile(const PaperKind& kind) const;
    void StoreLastSettings(const PaperKind& kind, const PaperWindow& window) const;

    Platform& platform;
    AppWindows& windows;
    std::string_view manual;
    Preferences preferences;
    GalleryWindow gallery;
    std::map<const PaperKind*, std::unique_ptr<PaperWindow>> papers;
    /// What the wizard of each kind last held. The wizard is one for the whole run, whatever becomes of its window.
    std::map<const PaperKind*, std::vector<ControlState>> wizards;
    std::unique_ptr<VersionCheckThread> versionCheck;
};

}  // namespace linealis
