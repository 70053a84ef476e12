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

/// The windows on a screen. The front end implements this interface for the application.
class AppWindows {
public:
    AppWindows() = default;
    virtual ~AppWindows() = default;
    AppWindows(const AppWindows&) = delete;
    AppWindows& operator=(const AppWindows&) = delete;

    /// Shows the window of the kind, creating it if necessary, and brings it to the front.
    virtual void Show(const PaperKind& kind, PaperWindow& window) = 0;
    /// Called before a window is shown for the first time, if its form has the defaults of its kind: the user has
    /// asked for an empty form, and has saved no default for it.
    virtual void PrepareEmpty(PaperWindow& window) = 0;
    /// Shows the preferences dialog and returns when it has been closed.
    virtual void ShowPreferences(PrefsWindow& window) = 0;
    /// Whether any window is open, of whatever type.
    virtual bool AnyWindowOpen() const = 0;
    virtual void CloseFrontWindow() = 0;
    /// Called after the user has opened or saved a settings file. Not called for presets and last settings.
    virtual void Used(const FolderItem& settingsFile) = 0;
    /// Whether the user has quit the program, which is about to end.
    virtual bool IsEnding() const = 0;
};

/// The application: starts and ends the program, opens the paper windows, and opens the settings files that the
/// system passes in, each in the window of its kind.
class App {
public:
    /// `theManual` is the PDF document that Help opens. All arguments must outlive the application.
    App(Platform& thePlatform, AppWindows& theWindows, std::string_view theManual);

    /// Reads the preferences and, unless they forbid it, checks for a newer version. Call once, at the start.
    void Event_Open();
    /// Writes the preferences. Call at the end of the program.
    void Event_Close();

    /// Stores what closing all windows and ending the program would store, but closes nothing. Called before the
    /// desktop session ends, when the program may be ended without further notice.
    void Store();
    /// Opens a file that the system passes in. First tells the user what will happen to it.
    void Event_OpenDocument(const FolderItem& file);

    /// Opens a settings file of any kind in its window, without a message. Returns the window, or null if no kind
    /// has the extension of the file. A file that cannot be read is reported through Platform::Note.
    PaperWindow* OpenSettings(const FolderItem& file);

    /// Shows the window of a kind, of which there is at most one. A new window starts with the default that the
    /// user has saved, if any, and keeps its values until it is closed.
    PaperWindow& ShowPaper(const PaperKind& kind);

    /// Does the same for a user who wants an empty form: AppWindows::PrepareEmpty can change a new one.
    PaperWindow& ShowEmptyPaper(const PaperKind& kind);

    /// Called by the front end when the window of the kind has been closed. Stores what is kept of its form.
    /// Returns the paper window, which the front end must keep as long as anything still shows it; null if there is
    /// none.
    std::unique_ptr<PaperWindow> PaperClosed(const PaperKind& kind);

    /// Performs a menu item, except those for text editing and Quit, which the front end handles. `front` is the
    /// paper window in front; it may be null only if IsEnabled accepts the item without one.
    void Perform(const MenuItem& item, PaperWindow* front);

    /// Opens the manual in the default viewer. Shows a message if that fails.
    void DoHelp();
    /// Asks the web server in the background whether there is a newer version.
    void CheckForTheLatestVersion();

    GalleryWindow& Gallery() { return gallery; }
    static ProgramVersion Version();

    // Small functions, implemented in the modules that use them.
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
    /// Returns the window of the kind, which is created if needed.
    PaperWindow& WindowOf(const PaperKind& kind);
    void ShowAbout();
    /// Lets the window open or save its settings file, and reports the file to the front end on success.
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
    /// The last state of the wizard of each kind. A wizard keeps its values until the program ends, even when its
    /// window is closed.
    std::map<const PaperKind*, std::vector<ControlState>> wizards;
    std::unique_ptr<VersionCheckThread> versionCheck;
};

}  // namespace linealis
