#include "app/App.h"

#include "app/OwnPresets.h"
#include "platform/BinaryStream.h"
#include "platform/Version.h"

namespace linealis {

namespace {

constexpr const char* const makersNotice = "Tallowmere Works";

std::vector<GalleryWindow::Entry> GalleryEntries()
{
    std::vector<GalleryWindow::Entry> entries;
    for (const PaperKind& kind : PaperKinds()) {
        entries.push_back({kind.galleryTitle, kind.picture});
    }
    return entries;
}

std::string ExtensionOf(const FolderItem& file)
{
    const std::string extension = file.Path().extension().string();
    return extension.empty() ? "" : extension.substr(1);
}

/// Returns a sentence that says what will happen to a document.
Message WhatOpens(const FolderItem& document)
{
    const PaperKind* const kind = FindPaperKindOf(document.Path());
    return kind == nullptr
               ? Message("%1 is not a Linealis settings file. Nothing opens.", document.Name())
               : Message("%1 opens in the window of %2.", document.Name(), Message::Listed(kind->galleryTitle));
}

/// Writes a file that must not exist yet, so that it cannot follow a link that somebody else has planted.
std::error_code WriteNew(const FolderItem& file, std::string_view bytes)
{
    BinaryStream stream = file.CreateNewBinaryFile();
    stream.Write(bytes);
    return stream.Close();
}

}  // namespace

App::App(Platform& thePlatform, AppWindows& theWindows, std::string_view theManual)
    : platform(thePlatform), windows(theWindows), manual(theManual),
      gallery(GalleryEntries(), [this](std::size_t entry) { OpenFromGallery(entry); })
{}

ProgramVersion App::Version()
{
    return programVersion;
}

FolderItem App::PrefsFile() const
{
    return platform.PreferencesFolder().Child("LinealisPrefs");
}

FolderItem App::LastSettingsFile() const
{
    return platform.PreferencesFolder().Child("LinealisLastSettings");
}

FolderItem App::DefaultFile(const PaperKind& kind) const
{
    return OwnPresets(platform.PreferencesFolder()).DefaultFile(kind);
}

void App::Event_Open()
{
    preferences = ReadPrefs(PrefsFile());
    if (!preferences.noUpdateCheck) {
        CheckForTheLatestVersion();
    }
}

void App::Event_Close()
{
    WritePrefs(preferences, PrefsFile(), platform);
}

void App::StoreLastSettings(const PaperKind& kind, const PaperWindow& window) const
{
    if (kind.keepsLastSettings) {
        window.SaveSettings(LastSettingsFile());
    }
    OwnPresets(platform.PreferencesFolder()).SaveLeft(kind, window);
}

void App::Store()
{
    for (const auto& [kind, window] : papers) {
        StoreLastSettings(*kind, *window);
    }
    Event_Close();
}

void App::CheckForTheLatestVersion()
{
    versionCheck = std::make_unique<VersionCheckThread>(
        platform, programVersion, makersServer, preferences.lastUpdateCheckVersion,
        [this](std::int64_t version) { preferences.lastUpdateCheckVersion = version; });
    versionCheck->Event_Run();
}

void App::Event_OpenDocument(const FolderItem& file)
{
    const std::string extension = ExtensionOf(file);
    platform.MsgBoxUnlessHidden(Message::Verbatim(extension), WhatOpens(file), "openedDocument");
    if (windows.IsEnding()) {
        return;  // the user has quit the program instead of closing the message
    }
    OpenSettings(file);
}

PaperWindow* App::OpenSettings(const FolderItem& file)
{
    const PaperKind* const kind = FindPaperKindOf(file.Path());
    if (kind == nullptr) {
        return nullptr;
    }
    PaperWindow& window = ShowPaper(*kind);
    if (window.OpenDocument(file)) {
        windows.Used(file);
    }
    return &window;
}

PaperWindow& App::ShowPaper(const PaperKind& kind)
{
    PaperWindow& window = WindowOf(kind);
    windows.Show(kind, window);
    return window;
}

PaperWindow& App::ShowEmptyPaper(const PaperKind& kind)
{
    if (!papers.contains(&kind) && !DefaultFile(kind).Exists()) {
        windows.PrepareEmpty(WindowOf(kind));
    }
    return ShowPaper(kind);
}

PaperWindow& App::WindowOf(const PaperKind& kind)
{
    std::unique_ptr<PaperWindow>& window = papers[&kind];
    if (!window) {
        window = MakeWindow(kind, platform);
        if (const FolderItem file = DefaultFile(kind); file.Exists()) {
            window->LayOver(file.OpenAsBinaryFile());
        }
        if (const auto held = wizards.find(&kind); held != wizards.end()) {
            window->GetWizard()->Fields().Restore(held->second);
        }
    }
    return *window;
}

std::unique_ptr<PaperWindow> App::PaperClosed(const PaperKind& kind)
{
    const auto closed = papers.find(&kind);
    if (closed == papers.end()) {
        return nullptr;
    }
    std::unique_ptr<PaperWindow> window = std::move(closed->second);
    papers.erase(closed);
    StoreLastSettings(kind, *window);
    if (Wizard* const wizard = window->GetWizard()) {
        wizards[&kind] = wizard->Fields().State();
    }
    return window;
}

void App::OpenFromGallery(std::size_t entry)
{
    const PaperKind& kind = PaperKinds()[entry];
    const FolderItem file = LastSettingsFile();
    // The default that the user has saved takes precedence over the last settings.
    if (kind.keepsLastSettings && file.Exists() && !DefaultFile(kind).Exists()) {
        ShowPaper(kind).LoadSettings(file);
    } else {
        ShowEmptyPaper(kind);
    }
}

void App::Perform(const MenuItem& item, PaperWindow* front)
{
    switch (item.command) {
    case Command::Open:
        Remember(*front, &PaperWindow::FileOpen_Action);
        break;
    case Command::Save:
        Remember(*front, &PaperWindow::FileSave_Action);
        break;
    case Command::SaveAs:
        Remember(*front, &PaperWindow::FileSaveAs_Action);
        break;
    case Command::CloseWindow:
        if (windows.AnyWindowOpen()) {
            windows.CloseFrontWindow();
        }
        break;
    case Command::About:
        ShowAbout();
        break;
    case Command::VisitWebsite:
        platform.ShowURL(makersServer);
        break;
    case Command::CheckForLatestVersion:
        platform.ShowURL(std::string(makersServer) + "/version.html?prog=linealis&version=" + versionText);
        break;
    case Command::Preferences: {
        PrefsWindow window(preferences.noUpdateCheck);
        windows.ShowPreferences(window);
        break;
    }
    case Command::Help:
        DoHelp();
        break;
    case Command::ShowPaper:
        ShowEmptyPaper(*item.kind);
        break;
    default:
        break;
    }
}

void App::Remember(PaperWindow& window, bool (PaperWindow::*action)())
{
    if ((window.*action)()) {
        windows.Used(window.OurFolderItem());
    }
}

void App::ShowAbout()
{
    MessageDialog dialog;
    dialog.message = Message("Linealis   Version: %1\n%2",
                             mystring(programVersion.major) + "." + mystring(programVersion.minor) + "." +
                                 mystring(programVersion.third),
                             makersNotice);
    platform.ShowModal(dialog);
}

void App::DoHelp()
{
    const FolderItem file = HelpFile();
    if (file.IsEmpty() || !platform.Launch(file)) {
        platform.MsgBox(Message("Could not display help"));
    }
}

/// Writes the manual to the temporary folder and returns the file. Replaces the copy of an earlier run; if that
/// cannot be deleted, returns it as it is. Returns an empty reference on failure.
FolderItem App::HelpFile() const
{
    const std::string name = "docsLNS.pdf";
    const FolderItem folder = platform.TemporaryFolder();
    FolderItem file = folder.Child(name);
    if (file.IsOwnRegularFile()) {
        file.Delete();
        if (file.IsOwnRegularFile()) {
            return file;
        }
    }
    std::error_code error = WriteNew(file, manual);
    if (error == std::errc::file_exists) {  // another user of the shared folder has a file of that name
        file = folder.MakePrivateFolder("linealis-").Child(name);
        error = WriteNew(file, manual);
    }
    return error ? FolderItem() : file;
}

}  // namespace linealis
