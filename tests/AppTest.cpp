#include "app/App.h"

#include "PageSupport.h"
#include "app/Version.h"

#include <array>
#include <limits>

namespace linealis::test {
namespace {

/// Notes what is shown, and how the window stood then.
class Windows : public AppWindows {
public:
    struct Shown {
        std::string_view kind;
        const PaperWindow* window;
        std::string scale;
        bool hasDocument;
        std::size_t messagesBefore;
    };

    explicit Windows(const ScreenlessPlatform& thePlatform) : platform(thePlatform) {}

    void Show(const PaperKind& kind, PaperWindow& window) override
    {
        shown.push_back({kind.name, &window, window.form.Text("EditXScale"), !window.OurFolderItem().IsEmpty(),
                         platform.messages.size()});
    }
    void ShowPreferences(PrefsWindow& window) override { user(window); }
    bool AnyWindowOpen() const override { return anyOpen; }
    void CloseFrontWindow() override { ++closed; }

    std::vector<Shown> shown;
    std::function<void(PrefsWindow& window)> user;
    bool anyOpen = true;
    int closed = 0;

private:
    const ScreenlessPlatform& platform;
};

const std::string server = makersServer;
const std::string helpFailed = "Could not display help";

class AppTest : public testing::Test {
protected:
    AppTest()
    {
        fs::create_directory(preferences.Path());
        fs::create_directory(temporary.Path());
        platform.preferencesFolder = preferences;
        platform.temporaryFolder = temporary;
    }

    static const MenuItem& Item(std::string_view name)
    {
        for (const Menu& menu : MenuBar1()) {
            for (const MenuItem& item : menu.items) {
                if (item.name == name) {
                    return item;
                }
            }
        }
        throw std::out_of_range(std::string(name));
    }
    void Choose(std::string_view name, PaperWindow* front = nullptr) { app.Perform(Item(name), front); }

    /// The window as it is now, without a showing that counts.
    PaperWindow& Window(std::string_view kind)
    {
        PaperWindow& window = app.ShowPaper(*FindPaperKind(kind));
        windows.shown.pop_back();
        return window;
    }

    /// A settings file of the kind with an X scale of 77.
    FolderItem Document(const PaperKind& kind, const std::string& name)
    {
        ScreenlessPlatform elsewhere;
        const auto window = kind.make(elsewhere);
        window->form.SetText("EditXScale", "77");
        FolderItem file(folder / name);
        EXPECT_FALSE(window->SaveSettings(file));
        return file;
    }

    std::size_t FetchesAtTheNextStart()
    {
        ScreenlessPlatform next;
        next.preferencesFolder = preferences;
        App(next, windows, manual).Event_Open();
        return next.fetches.size();
    }

    TemporaryFolder folder;
    FolderItem preferences{folder / "preferences"}, temporary{folder / "temporary"};
    FolderItem help = temporary.Child("docsLNS.pdf");
    const std::string manual = std::string("%PDF-1.4\r\0\xFF manual\n", 19);
    ScreenlessPlatform platform;
    Windows windows{platform};
    App app{platform, windows, manual};
};

using Start = AppTest;
using Documents = AppTest;
using PaperWindows = AppTest;
using Gallery = AppTest;
using Help = AppTest;
using Commands = AppTest;
using PreferencesDialog = AppTest;

TEST_F(Start, ChecksForANewVersionIfThatIsAllowed)
{
    app.Event_Open();
    ASSERT_EQ(platform.fetches.size(), 1U) << "there are no preferences yet";
    std::string version = versionText;
    std::erase(version, '.');
    const std::string request = server + "/version/versionb.html?p=1230";
    EXPECT_EQ(platform.fetches[0].url, request + version.substr(0, 3) + "M000000000");
    EXPECT_TRUE(windows.shown.empty()) << "no paper window opens by itself";

    platform.buttonAnswer = MessageDialog::Button::Action;
    platform.fetches[0].onReply("9.8.7");
    EXPECT_EQ(platform.shownUrls, Names{server + "/software/linealis.html"});
    platform.buttonAnswer = MessageDialog::Button::Alternate;
    platform.fetches[0].onReply("9.8.7");
    EXPECT_EQ(preferences.Child("LinealisPrefs").Exists(), false) << "until the program ends";
    app.Event_Close();

    ScreenlessPlatform next;
    next.preferencesFolder = preferences;
    App again(next, windows, manual);
    again.Event_Open();
    ASSERT_EQ(next.fetches.size(), 1U);
    EXPECT_EQ(next.fetches[0].url, request + "987M000000000");
}

TEST_F(Start, DoesNotCheckIfSwitchedOff)
{
    const FolderItem prefs = preferences.Child("LinealisPrefs");
    WritePrefs({true, 140}, prefs, platform);
    const std::string old = ReadFile(prefs.Path());
    app.Event_Open();
    EXPECT_TRUE(platform.fetches.empty());
    app.Event_Close();
    EXPECT_TRUE(ReadFile(prefs.Path()) == old);
    Choose("AppleCheckForLatestVersion");
    EXPECT_EQ(platform.shownUrls.size(), 1U) << "the menu's way stays open";
}

struct Kind {
    const char* title;  ///< in the gallery, like the picture and the place
    const char* picture;
    int left;
    int top;
    const char* name;
    const char* extension;
};
constexpr std::array<Kind, 14> kinds = {{
    {"Graph Paper", "Graph.png", 20, 40, "graph", "setg"},
    {"Axonometric", "Axonometric.png", 142, 40, "axonometric", "seta"},
    {"Note Paper", "Cornell.png", 264, 40, "cornell", "setc"},
    {"Crosses Paper", "Crosses.png", 386, 40, "crosses", "setr"},
    {"Dots Paper", "Dots.png", 508, 40, "dots", "setd"},
    {"Engineering", "Engineering.png", 630, 40, "engineering", "sete"},
    {"Hexagon", "Hexagon.png", 20, 212, "hexagon", "seth"},
    {"Isometric", "Isometric.png", 142, 212, "isometric", "seti"},
    {"Lined Paper", "Lined.png", 264, 212, "lined", "setl"},
    {"Polar", "Polar.png", 386, 212, "polar", "setp"},
    {"Trapezoid", "trapezoid.png", 508, 212, "trapezoid", "sett"},
    {"Ternary", "ternary.png", 630, 212, "ternary", "sety"},
    {"Grid", "Grid.png", 20, 384, "grid", "setx"},
    {"Brick", "Brick.png", 142, 384, "brick", "setk"},
}};

TEST_F(Documents, ReachTheirWindowStepByStep)
{
    for (const Kind& expected : kinds) {
        const char* const kind = expected.name;
        const std::string lower = expected.extension;
        for (const std::string& extension : {lower, std::string("SET") + static_cast<char>(lower[3] - 'a' + 'A')}) {
            SCOPED_TRACE(extension);
            app.PaperClosed(*FindPaperKind(kind));
            const FolderItem file = Document(*FindPaperKind(kind), "a.seta." + extension);
            const std::size_t messages = platform.messages.size() + 1;
            windows.shown.clear();
            app.Event_OpenDocument(file);
            ASSERT_EQ(platform.messages.size(), messages);
            EXPECT_EQ(platform.messages.back(), extension);
            ASSERT_EQ(windows.shown.size(), 1U);
            const Windows::Shown shown = windows.shown[0];  // a copy: the list grows below
            EXPECT_EQ(shown.kind, kind);
            EXPECT_EQ(shown.messagesBefore, messages);
            EXPECT_TRUE(shown.scale == "100" && !shown.hasDocument) << "shown before it is loaded";
            const PaperWindow& window = Window(kind);
            EXPECT_EQ(&window, shown.window);
            EXPECT_EQ(window.form.Text("EditXScale"), "77");
            EXPECT_EQ(window.OurFolderItem(), file);
            EXPECT_TRUE(IsEnabled(Item("FileSave"), &window, true));
        }
    }
    EXPECT_TRUE(platform.dialogs.empty() && platform.fileErrors.empty());
}

TEST_F(Documents, ReachAWindowThatIsAlreadyOpen)
{
    PaperWindow& window = Window("grid");
    window.form.SetText("EditXScale", "55");
    const FolderItem missing(folder / "missing.setx");
    app.Event_OpenDocument(missing);
    EXPECT_EQ(window.form.Text("EditXScale"), "55");
    EXPECT_EQ(window.OurFolderItem(), missing);
    app.Event_OpenDocument(Document(*FindPaperKind("grid"), "there.setx"));
    EXPECT_EQ(window.form.Text("EditXScale"), "77");
    EXPECT_EQ(windows.shown.at(1).window, &window);
    EXPECT_EQ(platform.messages, (Names{"setx", "setx"}));
}

TEST_F(Documents, OfAnUnknownExtensionAreDroppedAfterTheMessage)
{
    for (const char* const name : {"page.pdf", "setx", "grid.set", "grid.setxx", "grid.setx.bak", "grid."}) {
        app.Event_OpenDocument(Document(*FindPaperKind("grid"), name));
    }
    EXPECT_EQ(platform.messages, (Names{"pdf", "", "set", "setxx", "bak", ""}));
    EXPECT_TRUE(windows.shown.empty());
}

TEST_F(PaperWindows, AreMadeOnceAndKeepTheirValuesUntilClosed)
{
    for (const MenuItem& item : MenuBar1().at(3).items) {
        SCOPED_TRACE(item.name);
        Choose(item.name);
        ASSERT_EQ(windows.shown.back().kind, item.kind->name);
        PaperWindow& window = Window(item.kind->name);
        EXPECT_EQ(&window, windows.shown.back().window);
        window.form.SetText("EditXScale", "55");
        Choose(item.name);
        EXPECT_EQ(windows.shown.back().window, &window);
        EXPECT_EQ(windows.shown.back().scale, "55");
        app.PaperClosed(*item.kind);
        Choose(item.name);
        EXPECT_EQ(windows.shown.back().scale, "100");
    }
    EXPECT_EQ(windows.shown.size(), 3 * kinds.size());
    app.PaperClosed(*FindPaperKind("grid"));
    app.PaperClosed(*FindPaperKind("grid"));  // harmless, though it is no longer there
}

TEST_F(PaperWindows, TheGraphsLastSettingsAreLoadedByTheGalleryAlone)
{
    const PaperKind& graph = *FindPaperKind("graph");
    app.Gallery().Event_MouseUp(0);
    EXPECT_EQ(Window("graph").form.Text("EditXScale"), "100") << "there are none yet";
    Window("graph").form.SetText("EditXScale", "77");
    app.PaperClosed(graph);
    for (const std::string& other : KindNames()) {
        if (other != graph.name) {
            Window(other);
            app.PaperClosed(*FindPaperKind(other));
        }
    }
    EXPECT_EQ(fs::exists(preferences.Path() / "LinealisLastSettings"), true);
    EXPECT_EQ(std::distance(fs::directory_iterator(preferences.Path()), {}), 1) << "of no other kind";

    Choose("WindowGraphPaper");
    PaperWindow& window = Window("graph");
    EXPECT_EQ(window.form.Text("EditXScale"), "100");
    app.Gallery().Event_MouseUp(0);
    EXPECT_EQ(windows.shown.back().scale, "100") << "shown before they are loaded";
    EXPECT_EQ(windows.shown.back().window, &window);
    EXPECT_EQ(window.form.Text("EditXScale"), "77");
    EXPECT_TRUE(window.OurFolderItem().IsEmpty()) << "they are nobody's document";
    window.form.SetText("EditXScale", "66");
    app.Gallery().Event_MouseUp(0);
    EXPECT_EQ(window.form.Text("EditXScale"), "77") << "loaded again by each click";
}

TEST_F(Gallery, HasItsEntriesInTheirPlaces)
{
    const std::vector<GalleryWindow::Entry>& entries = app.Gallery().Entries();
    ASSERT_EQ(entries.size(), kinds.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Kind& expected = kinds.at(i);
        EXPECT_EQ(entries[i].title, expected.title);
        EXPECT_EQ(entries[i].picture, expected.picture);
        EXPECT_EQ(entries[i].titlePlace.left, expected.left) << expected.title;
        EXPECT_EQ(entries[i].titlePlace.top, expected.top) << expected.title;
        EXPECT_EQ(entries[i].canvasPlace.left, expected.left) << expected.title;
        EXPECT_EQ(entries[i].canvasPlace.top, expected.top + 20) << expected.title;
    }
}

TEST_F(Gallery, PicturesAreThereInTheirSize)
{
    const fs::path pictures = fs::path(LINEALIS_PAGES_PATH) / "../../resources/gallery";
    for (const Kind& kind : kinds) {
        const std::string png = ReadFile(pictures / kind.picture);
        EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1A\n") << kind.picture;
        EXPECT_EQ(png.substr(16, 8), std::string("\0\0\0\x66\0\0\0\x84", 8)) << "not 102 by 132";
    }
}

TEST_F(Gallery, StandsInTheMiddleOfTheScreen)
{
    const auto place = [](int width, int height) {
        const GalleryWindow::Place found = GalleryWindow::PlaceOnScreen(width, height);
        return std::pair(found.left, found.top);
    };
    EXPECT_EQ(place(1440, 877), std::pair(345, 157));
    EXPECT_EQ(place(1281, 800), std::pair(265, 118)) << "halves are cut off";
    EXPECT_EQ(place(700, 500), std::pair(-25, -31));
}

TEST_F(Gallery, AClickOpensItsKindOnce)
{
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        app.Gallery().Event_MouseUp(i);
        EXPECT_EQ(windows.shown.back().kind, kinds.at(i).name);
        PaperWindow& window = Window(kinds.at(i).name);
        window.form.SetText("EditXScale", "55");
        app.Gallery().Event_MouseUp(i);
        EXPECT_EQ(windows.shown.back().window, &window);
        EXPECT_EQ(windows.shown.back().scale, "55");
    }
    windows.shown.clear();
    app.Gallery().Event_MouseUp(kinds.size());
    app.Gallery().Event_MouseUp(std::numeric_limits<std::size_t>::max());
    EXPECT_TRUE(windows.shown.empty());
}

TEST_F(Help, WritesTheManualAnewAndOpensIt)
{
    WriteFile(help.Path(), std::string(1000, 'x'));
    Choose("EditHelp");
    EXPECT_TRUE(ReadFile(help.Path()) == manual);
    app.DoHelp();
    EXPECT_TRUE(ReadFile(help.Path()) == manual);
    EXPECT_EQ(platform.launched, (std::vector{help, help}));
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(Help, UsesItsOwnFileThatCannotBeDeleted)
{
    const Unprivileged user;
    fs::create_directory(folder / "mine");
    platform.temporaryFolder = FolderItem(folder / "mine");
    WriteFile(folder / "mine/docsLNS.pdf", "old");
    fs::permissions(folder / "mine", fs::perms(0555));
    app.DoHelp();
    fs::permissions(folder / "mine", fs::perms(0777));
    EXPECT_EQ(platform.launched, std::vector{FolderItem(folder / "mine/docsLNS.pdf")});
    EXPECT_TRUE(platform.messages.empty() &&
                ReadFile(folder / "mine/docsLNS.pdf") == (user.Worked() ? "old" : manual));
}

TEST_F(Help, AStrangersFileOrLinkIsLeftAlone)
{
    WriteFile(folder / "victim", "precious");
    const auto helpGoesElsewhere = [&] {
        platform.launched.clear();
        app.DoHelp();
        ASSERT_EQ(platform.launched.size(), 1U);
        const fs::path file = platform.launched[0].Path();
        EXPECT_TRUE(file.parent_path().parent_path() == temporary.Path() && ReadFile(file) == manual) << file;
        EXPECT_EQ(fs::status(file.parent_path()).permissions(), fs::perms(0700));
    };
    for (const char* const end : {"victim", "missing"}) {
        fs::create_symlink(folder / end, help.Path());
        helpGoesElsewhere();
        EXPECT_TRUE(fs::is_symlink(help.Path()));
        help.Delete();
    }
    fs::create_directories(help.Path() / "in use");
    helpGoesElsewhere();
    EXPECT_TRUE(platform.messages.empty() && fs::is_directory(help.Path() / "in use"));
    EXPECT_EQ(ReadFile(folder / "victim"), "precious");
    EXPECT_FALSE(fs::exists(folder / "missing"));
}

TEST_F(Help, TellsOnceThatItFailed)
{
    platform.launchSucceeds = false;
    app.DoHelp();
    EXPECT_EQ(platform.launched.size(), 1U);
    EXPECT_EQ(platform.messages, Names{helpFailed});
    platform.launched.clear();
    for (const FolderItem& nowhere : {FolderItem(), FolderItem(folder / "missing")}) {
        platform.messages.clear();
        platform.temporaryFolder = nowhere;
        app.DoHelp();
        EXPECT_EQ(platform.messages, Names{helpFailed});
        EXPECT_TRUE(platform.launched.empty()) << "there is nothing to open";
    }
}

TEST_F(Commands, AboutTellsTheVersion)
{
    Choose("AppleAboutLinealis");
    ASSERT_EQ(platform.dialogs.size(), 1U);
    const MessageDialog& dialog = platform.dialogs[0];
    const Names lines = Lines(dialog.message, '\n');
    ASSERT_EQ(lines.size(), 2U) << dialog.message;
    EXPECT_EQ(lines[0], std::string("Linealis   Version: ") + versionText);
    EXPECT_FALSE(lines[1].empty());
    EXPECT_EQ(dialog.actionButton, "OK");
    EXPECT_TRUE(dialog.cancelButton.empty() && dialog.alternateActionButton.empty());
}

TEST_F(Commands, WebPagesOpenInTheBrowser)
{
    Choose("AppleVisitWebsite");
    Choose("AppleCheckForLatestVersion");
    EXPECT_EQ(platform.shownUrls, (Names{server, server + "/version.html?prog=linealis&version=" + versionText}));
    EXPECT_TRUE(platform.fetches.empty());
}

TEST_F(Commands, TheServerOfAnUnconfiguredBuildIsNobodys)
{
    const std::string build = ReadFile(fs::path(LINEALIS_PAGES_PATH) / "../../CMakeLists.txt");
    const std::string setting = "set(LINEALIS_SERVER \"";
    const std::size_t start = build.find(setting) + setting.size();
    const std::string address = build.substr(start, build.find('"', start) - start);
    EXPECT_TRUE(address.starts_with("http://") && address.ends_with(".invalid")) << address;
}

TEST_F(Commands, SettingsFilesAreTheFrontWindows)
{
    PaperWindow& grid = Window("grid");
    PaperWindow& lined = Window("lined");
    platform.saveAnswer = FolderItem(folder / "grid.setx");
    grid.form.SetText("EditXScale", "55");
    Choose("FileSaveAs", &grid);
    EXPECT_EQ(grid.OurFolderItem(), platform.saveAnswer);
    grid.form.SetText("EditXScale", "66");
    Choose("FileSave", &grid);
    grid.form.SetText("EditXScale", "77");
    platform.openAnswer = platform.saveAnswer;
    Choose("FileOpen", &grid);
    EXPECT_EQ(grid.form.Text("EditXScale"), "66");
    EXPECT_TRUE(lined.OurFolderItem().IsEmpty());
}

TEST_F(Commands, CloseNeedsAWindow)
{
    Choose("FileClose");
    EXPECT_EQ(windows.closed, 1);
    windows.anyOpen = false;
    Choose("FileClose");
    EXPECT_EQ(windows.closed, 1);
}

TEST_F(PreferencesDialog, OkTakesEffectAtTheNextStart)
{
    const std::string_view box = "CheckBoxUpdateCheck";
    app.Event_Open();
    windows.user = [&](PrefsWindow& window) {
        EXPECT_EQ(window.form[box].control.caption, "Check For Updates");
        EXPECT_TRUE(window.form.Value(box));
        window.form.Click(box, false);
        window.PushButton1_Action();
    };
    Choose("EditPreferences");
    platform.fetches.at(0).onReply("9.8.7");
    EXPECT_EQ(platform.dialogs.size(), 1U) << "the check that is under way goes on";
    EXPECT_EQ(FetchesAtTheNextStart(), 1U) << "not yet written";
    app.Event_Close();
    EXPECT_EQ(FetchesAtTheNextStart(), 0U);
    windows.user = [&](PrefsWindow& window) {
        EXPECT_FALSE(window.form.Value(box));
        window.form.Click(box, true);
        window.PushButton1_Action();
    };
    Choose("EditPreferences");
    app.Event_Close();
    EXPECT_EQ(FetchesAtTheNextStart(), 1U);
}

TEST_F(PreferencesDialog, CancelChangesNothing)
{
    for (const bool noUpdateCheck : {false, true}) {
        WritePrefs({noUpdateCheck, 140}, preferences.Child("LinealisPrefs"), platform);
        app.Event_Open();
        windows.user = [&](PrefsWindow& window) {
            window.form.Click("CheckBoxUpdateCheck", noUpdateCheck);
            window.PushButton2_Action();
        };
        Choose("EditPreferences");
        app.Event_Close();
        EXPECT_EQ(FetchesAtTheNextStart(), noUpdateCheck ? 0U : 1U);
    }
}

}  // namespace
}  // namespace linealis::test
