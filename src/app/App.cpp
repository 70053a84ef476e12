#include "app/App.h"

#include "app/Version.h"
#include "graph/MainWindow.h"
#include "platform/BinaryStream.h"

namespace linealis {

namespace {

constexpr const char* const makersNotice = "Tallowmere Works";
constexpr const char* const helpFailed = "Could not display help";

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
    platform.MsgBox(extension);
    if (const PaperKind* const kind = FindPaperKindByExtension(extension)) {
        ShowPaper(*kind).OpenDocument(file);
    }
}

PaperWindow& App::ShowPaper(const PaperKind& kind)
{
    std::unique_ptr<PaperWindow>& window = papers[&kind];
    if (!window) {
        window = kind.make(platform);
    }
    windows.Show(kind, *window);
    return *window;
}

void App::PaperClosed(const PaperKind& kind)
{
    const auto closed = papers.find(&kind);
    if (closed != papers.end()) {
        closed->second->Event_Close();
        papers.erase(closed);
    }
}

void App::OpenFromGallery(std::size_t entry)
{
    PaperWindow& window = ShowPaper(PaperKinds()[entry]);
    if (auto* const graph = dynamic_cast<MainWindow*>(&window)) {
        graph->LoadLastSettings();
    }
}

void App::Perform(const MenuItem& item, PaperWindow* front)
{
    switch (item.command) {
    case Command::Open:
        front->FileOpen_Action();
        break;
    case Command::Save:
        front->FileSave_Action();
        break;
    case Command::SaveAs:
        front->FileSaveAs_Action();
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
        ShowPaper(*item.kind);
        break;
    default:
        break;
    }
}

void App::ShowAbout()
{
    MessageDialog dialog;
    dialog.message = "Linealis   Version: " + mystring(programVersion.major) + "." +
                     mystring(programVersion.minor) + "." + mystring(programVersion.third) + "\n" + makersNotice;
    platform.ShowModal(dialog);
}

void App::DoHelp()
{
    const FolderItem file = platform.TemporaryFolder().Child("docsLNS.pdf");
    if (file.IsEmpty()) {
        platform.MsgBox(helpFailed);
        return;
    }
    if (file.Exists()) {
        file.Delete();
    }
    if (!file.Exists()) {
        BinaryStream stream = file.CreateBinaryFile();
        stream.Write(manual);
        if (stream.Close()) {
            platform.MsgBox(helpFailed);
            return;
        }
    }
    if (!platform.Launch(file)) {
        platform.MsgBox(helpFailed);
    }
}

}  // namespace linealis
