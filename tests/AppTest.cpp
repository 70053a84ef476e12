#include "app/App.h"

#include "PageSupport.h"
#include "app/Version.h"

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
        shown.push_back({kind.name, &window, window.form.EditXScale.Text(), !window.OurFolderItem().IsEmpty(),
                         platform.messages.size()});
    }
    void ShowPreferences(PrefsWindow& window) override { user(window); }
    bool AnyWindowOpen() const override { return anyOpen; }
    void CloseFrontWindow() override { ++closed; }
    bool IsEnding() const override { return isEnding; }

    std::vector<Shown> shown;
    std::function<void(PrefsWindow& window)> user;
    bool anyOpen = true;
    int closed = 0;
    bool isEnding = false;

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
        const auto window = MakeWindow(kind, elsewhere);
        window->form.EditXScale.SetText("77");
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

/// In the order of the gallery, with the letters of their extensions.
const Names kinds = {"graph",     "axonometric", "cornell", "crosses",   "dots",    "engineering", "hexagon",
                     "isometric", "lined",       "polar",   "trapezoid", "ternary", "grid",        "brick"};
constexpr std::string_view letters = "gacrdehilptyxk";

TEST_F(Documents, ReachTheirWindowStepByStep)
{
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const PaperKind& kind = *FindPaperKind(kinds[i]);
        for (const std::string& extension :
             {std::string("set") + letters[i], std::string("SET") + static_cast<char>(letters[i] - 'a' + 'A')}) {
            SCOPED_TRACE(extension);
            app.PaperClosed(kind);
            const FolderItem file = Document(kind, "a.seta." + extension);
            platform.messages.clear();
            windows.shown.clear();
            app.Event_OpenDocument(file);
            EXPECT_EQ(platform.messages, Names{extension});
            ASSERT_EQ(windows.shown.size(), 1U);
            const Windows::Shown shown = windows.shown[0];  // a copy: the list grows below
            EXPECT_TRUE(shown.kind == kinds[i] && shown.messagesBefore == 1);
            EXPECT_TRUE(shown.scale == "100" && !shown.hasDocument) << "shown before it is loaded";
            const PaperWindow& window = Window(kinds[i]);
            EXPECT_EQ(&window, shown.window);
            EXPECT_EQ(window.form.EditXScale.Text(), "77");
            EXPECT_EQ(window.OurFolderItem(), file);
        }
    }
    EXPECT_TRUE(platform.dialogs.empty() && platform.fileErrors.empty());
}

TEST_F(Documents, ReachAWindowThatIsAlreadyOpen)
{
    PaperWindow& window = Window("grid");
    window.form.EditXScale.SetText("55");
    const FolderItem missing(folder / "missing.setx");
    app.Event_OpenDocument(missing);
    EXPECT_EQ(window.form.EditXScale.Text(), "55");
    EXPECT_EQ(window.OurFolderItem(), missing);
    app.Event_OpenDocument(Document(*FindPaperKind("grid"), "there.setx"));
    EXPECT_EQ(window.form.EditXScale.Text(), "77");
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
        Window(item.kind->name).form.EditXScale.SetText("55");
        Choose(item.name);
        EXPECT_EQ(windows.shown.back().scale, "55");
        app.PaperClosed(*item.kind);
        app.PaperClosed(*item.kind);  // harmless, though it is no longer there
        Choose(item.name);
        EXPECT_EQ(windows.shown.back().scale, "100");
    }
    EXPECT_EQ(windows.shown.size(), 3 * kinds.size());
}

TEST_F(PaperWindows, TheGraphsLastSettingsAreLoadedByTheGalleryAlone)
{
    const PaperKind& graph = *FindPaperKind("graph");
    app.Gallery().Event_MouseUp(0);
    EXPECT_EQ(Window("graph").form.EditXScale.Text(), "100") << "there are none yet";
    Window("graph").form.EditXScale.SetText("77");
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
    EXPECT_EQ(window.form.EditXScale.Text(), "100");
    app.Gallery().Event_MouseUp(0);
    EXPECT_EQ(windows.shown.back().scale, "100") << "shown before they are loaded";
    EXPECT_EQ(windows.shown.back().window, &window);
    EXPECT_EQ(window.form.EditXScale.Text(), "77");
    EXPECT_TRUE(window.OurFolderItem().IsEmpty()) << "they are nobody's document";
    window.form.EditXScale.SetText("66");
    app.Gallery().Event_MouseUp(0);
    EXPECT_EQ(window.form.EditXScale.Text(), "77") << "loaded again by each click";
}

TEST_F(Gallery, AClickOpensItsKindOnce)
{
    ASSERT_EQ(app.Gallery().Entries().size(), kinds.size());
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const fs::path pictures = fs::path(LINEALIS_PAGES_PATH) / "../../resources/gallery";
        const std::string png = ReadFile(pictures / app.Gallery().Entries()[i].picture);
        EXPECT_EQ(png.substr(16, 8), std::string("\0\0\0\x66\0\0\0\x84", 8)) << "not 102 by 132";
        app.Gallery().Event_MouseUp(i);
        EXPECT_EQ(windows.shown.back().kind, kinds[i]);
        PaperWindow& window = Window(kinds[i]);
        window.form.EditXScale.SetText("55");
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
    EXPECT_EQ(platform.messages, Names{helpFailed});
    platform.launched.clear();
    platform.temporaryFolder = FolderItem(folder / "missing");
    app.DoHelp();
    EXPECT_EQ(platform.messages, (Names{helpFailed, helpFailed}));
    EXPECT_TRUE(platform.launched.empty()) << "there is nothing to open";
}

TEST_F(Commands, AboutAndWebPages)
{
    Choose("AppleAboutLinealis");
    ASSERT_EQ(platform.dialogs.size(), 1U);
    const MessageDialog& dialog = platform.dialogs[0];
    EXPECT_TRUE(dialog.message.starts_with(std::string("Linealis   Version: ") + versionText + '\n'));
    EXPECT_EQ(dialog.actionButton + dialog.cancelButton + dialog.alternateActionButton, "OK");
    Choose("AppleVisitWebsite");
    Choose("AppleCheckForLatestVersion");
    EXPECT_EQ(platform.shownUrls, (Names{server, server + "/version.html?prog=linealis&version=" + versionText}));
    EXPECT_TRUE(platform.fetches.empty());
}

TEST_F(Commands, NeedWhatTheyWorkOn)
{
    const auto disabled = [](const PaperWindow* front, bool anyWindow) {
        Names names;
        for (const Menu& menu : MenuBar1()) {
            for (const MenuItem& item : menu.items) {
                if (!IsEnabled(item, front, anyWindow)) {
                    names.emplace_back(item.name);
                }
            }
        }
        return names;
    };
    EXPECT_EQ(disabled(nullptr, true), (Names{"FileOpen", "FileSave", "FileSaveAs"}));
    EXPECT_EQ(disabled(nullptr, false), (Names{"FileOpen", "FileSave", "FileSaveAs", "FileClose"}));
    PaperWindow& window = Window("grid");
    window.FileSaveAs_Action();
    EXPECT_EQ(disabled(&window, true), Names{"FileSave"}) << "the dialog was cancelled";
    platform.saveAnswer = FolderItem(folder / "page.pdf");
    window.PushButtonGenerate_Action();
    EXPECT_EQ(disabled(&window, true), Names{"FileSave"}) << "a page is no settings file";
    window.FileSaveAs_Action();
    EXPECT_EQ(disabled(&window, true), Names{});
}

TEST_F(Commands, SettingsFilesAreTheFrontWindows)
{
    PaperWindow& grid = Window("grid");
    PaperWindow& lined = Window("lined");
    platform.saveAnswer = FolderItem(folder / "grid.setx");
    grid.form.EditXScale.SetText("55");
    Choose("FileSaveAs", &grid);
    EXPECT_EQ(grid.OurFolderItem(), platform.saveAnswer);
    grid.form.EditXScale.SetText("66");
    Choose("FileSave", &grid);
    grid.form.EditXScale.SetText("77");
    platform.openAnswer = platform.saveAnswer;
    Choose("FileOpen", &grid);
    EXPECT_EQ(grid.form.EditXScale.Text(), "66");
    EXPECT_TRUE(lined.OurFolderItem().IsEmpty());
    Choose("FileClose");
    windows.anyOpen = false;
    Choose("FileClose");
    EXPECT_EQ(windows.closed, 1) << "there is none to close";
}

TEST_F(PreferencesDialog, OkTakesEffectAtTheNextStartAndCancelNever)
{
    app.Event_Open();
    windows.user = [&](PrefsWindow& window) {
        EXPECT_EQ(window.form.CheckBoxUpdateCheck.Caption(), "Check For Updates");
        EXPECT_TRUE(window.form.CheckBoxUpdateCheck.Value());
        window.form.CheckBoxUpdateCheck.Click(false);
        window.PushButton1_Action();
    };
    Choose("EditPreferences");
    platform.fetches.at(0).onReply("9.8.7");
    EXPECT_EQ(platform.dialogs.size(), 1U) << "the check that is under way goes on";
    EXPECT_EQ(FetchesAtTheNextStart(), 1U) << "not yet written";
    app.Event_Close();
    EXPECT_EQ(FetchesAtTheNextStart(), 0U);
    for (const bool pressesOk : {false, true}) {
        windows.user = [&](PrefsWindow& window) {
            EXPECT_EQ(window.form.CheckBoxUpdateCheck.Value(), false);
            window.form.CheckBoxUpdateCheck.Click(true);
            pressesOk ? window.PushButton1_Action() : window.PushButton2_Action();
        };
        Choose("EditPreferences");
        app.Event_Close();
        EXPECT_EQ(FetchesAtTheNextStart(), pressesOk ? 1U : 0U);
    }
}

}  // namespace
}  // namespace linealis::test
