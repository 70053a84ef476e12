#include "app/App.h"

#include "PageSupport.h"
#include "app/OwnPresets.h"
#include "desktop/system/RecentFiles.h"
#include "platform/Version.h"

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
    void PrepareEmpty(PaperWindow& window) override { prepared.push_back(&window); }
    void ShowPreferences(PrefsWindow& window) override { user(window); }
    bool AnyWindowOpen() const override { return anyOpen; }
    void CloseFrontWindow() override { ++closed; }
    void Used(const FolderItem& file) override
    {
        EXPECT_FALSE(RecentFiles(platform.PreferencesFolder()).Add(file));
    }
    bool IsEnding() const override { return isEnding; }

    std::vector<Shown> shown;
    std::function<void(PrefsWindow& window)> user;
    bool anyOpen = true;
    std::vector<const PaperWindow*> prepared;
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

/// In the order of the gallery.
const Names galleryOrder = {"graph",     "axonometric", "cornell", "crosses",   "dots",    "engineering", "hexagon",
                            "isometric", "lined",       "polar",   "trapezoid", "ternary", "grid",        "brick"};

TEST_F(Documents, OfAnUnknownExtensionAreDroppedAfterTheMessage)
{
    for (const char* const name : {"page.pdf", "setx", "grid.set", "grid.setxx", "grid.setx.bak", "grid."}) {
        app.Event_OpenDocument(Document(*FindPaperKind("grid"), name));
    }
    EXPECT_EQ(platform.messages, (Names{"pdf", "", "set", "setxx", "bak", ""}));
    EXPECT_TRUE(windows.shown.empty());
}

TEST_F(Documents, UsedLastAreListed)
{
    const RecentFiles recent(preferences);
    const PaperKind& grid = *FindPaperKind("grid");
    const FolderItem odd = Document(grid, "a\\n\n.setx"), plain = Document(grid, "b.setx");
    platform.openAnswer = odd;
    Choose("FileOpen", &Window("grid"));
    app.OpenSettings(FolderItem(folder / "./b.setx"));
    app.OpenSettings(FolderItem(folder / "missing.setx"));
    Window("grid").LayOver(Document(grid, "preset.setx").OpenAsBinaryFile());
    EXPECT_EQ(recent.List(), (std::vector{plain, odd}));
    platform.saveAnswer = FolderItem(folder / "saved.setx");
    Choose("FileSaveAs", &Window("grid"));
    app.Event_OpenDocument(odd);
    EXPECT_EQ(recent.List(), (std::vector{odd, platform.saveAnswer, plain})) << "none twice";
    odd.Delete();
    EXPECT_EQ(recent.List(), (std::vector{platform.saveAnswer, plain}));
    Choose("FileSave", &Window("grid"));
    EXPECT_EQ(recent.List().front(), odd);
    for (std::size_t i = 0; i < RecentFiles::most; ++i) {
        EXPECT_FALSE(recent.Add(Document(grid, std::to_string(i) + ".setx")));
    }
    EXPECT_EQ(recent.List().size(), RecentFiles::most);
    EXPECT_EQ(recent.List().back().Name(), "0.setx");
    const fs::path file = preferences.Child("LinealisRecentFiles").Path();
    const std::string whole = ReadFile(file);
    WriteFile(file, whole.substr(0, whole.rfind("0.setx")) + "\\\nb.setx\n" + plain.Path().string());
    EXPECT_EQ(recent.List().back(), plain);
    EXPECT_EQ(recent.List().size(), RecentFiles::most);
    EXPECT_FALSE(recent.Clear());
    EXPECT_TRUE(recent.List().empty());
    WriteFile(file, plain.Path().string() + "\n" + plain.Path().string());
    EXPECT_TRUE(recent.List().empty()) << "it is no such list";
    fs::remove(file);
    fs::create_symlink("/proc/self/mem", file);
    EXPECT_EQ(recent.Add(plain), std::errc::io_error) << "what cannot be read is not written anew";
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
    fs::remove_all(preferences.Path() / "left");
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
    app.PaperClosed(graph);
    app.Gallery().Event_MouseUp(0);
    EXPECT_EQ(windows.prepared.size(), 2U) << "the two empty forms, none with last settings";
}

TEST_F(PaperWindows, TheWizardKeepsWhatItHeldWhenItsWindowIsClosed)
{
    Window("graph").GetWizard()->Fields().Get<TextField>("EditMaxX").Type("14");
    app.PaperClosed(*FindPaperKind("graph"));
    PaperWindow& graph = Window("graph");
    EXPECT_EQ(graph.GetWizard()->Fields().Get<TextField>("EditMaxX").Text(), "14");
    graph.GetWizard()->PushButton1_Action();
    EXPECT_EQ(graph.form.Get<TextField>("EditXAxisMaximum").Text(), "14");
}

TEST_F(PaperWindows, BeginWithTheUsersDefaultAndAreLeftInAFile)
{
    const OwnPresets own(preferences);
    for (const PaperKind* const kind : {FindPaperKind("graph"), FindPaperKind("grid")}) {
        Window(kind->name).form.EditXScale.SetText("88");
        EXPECT_FALSE(own.LeftFile(*kind).Exists());
        app.PaperClosed(*kind);
        EXPECT_EQ(Window(kind->name).form.EditXScale.Text(), "100") << "there is no default yet";
        EXPECT_FALSE(Window(kind->name).LayOver(own.LeftFile(*kind).OpenAsBinaryFile()));
        EXPECT_EQ(Window(kind->name).form.EditXScale.Text(), "88");
        Window(kind->name).form.EditXScale.SetText("55");
        EXPECT_FALSE(own.SaveDefault(*kind, Window(kind->name)));
        Window(kind->name).form.EditXScale.SetText("66");
        app.PaperClosed(*kind);
        EXPECT_EQ(Window(kind->name).form.EditXScale.Text(), "55");
        EXPECT_TRUE(Window(kind->name).OurFolderItem().IsEmpty());
    }
    app.PaperClosed(*FindPaperKind("grid"));
    Choose("WindowGrid");
    EXPECT_EQ(windows.prepared.size(), 0U) << "a form with a default is not empty";
    app.Gallery().Event_MouseUp(0);
    EXPECT_EQ(Window("graph").form.EditXScale.Text(), "55") << "a default goes before the last settings";
    EXPECT_FALSE(own.ForgetDefault(*FindPaperKind("graph")));
    app.Gallery().Event_MouseUp(0);
    EXPECT_EQ(Window("graph").form.EditXScale.Text(), "66");
}

TEST_F(Gallery, AClickOpensItsKindOnce)
{
    ASSERT_EQ(app.Gallery().Entries().size(), PaperKinds().size());
    for (std::size_t i = 0; i < PaperKinds().size(); ++i) {
        const std::string_view kind = PaperKinds()[i].name;
        EXPECT_TRUE(i >= galleryOrder.size() || kind == galleryOrder[i])
            << "the gallery's order is what its users know";
        const fs::path pictures = fs::path(LINEALIS_PAGES_PATH) / "../../resources/gallery";
        const std::string png = ReadFile(pictures / app.Gallery().Entries()[i].picture);
        EXPECT_EQ(png.substr(16, 8), std::string("\0\0\0\x66\0\0\0\x84", 8))
            << "resources/gallery has no picture of 102 by 132 pixels for " << kind;
        app.Gallery().Event_MouseUp(i);
        EXPECT_EQ(windows.shown.back().kind, kind);
        PaperWindow& window = Window(kind);
        window.form.EditXScale.SetText("55");
        app.Gallery().Event_MouseUp(i);
        EXPECT_EQ(windows.shown.back().window, &window);
        EXPECT_EQ(windows.shown.back().scale, "55");
    }
    windows.shown.clear();
    app.Gallery().Event_MouseUp(PaperKinds().size());
    app.Gallery().Event_MouseUp(std::numeric_limits<std::size_t>::max());
    EXPECT_TRUE(windows.shown.empty());
}

TEST(PaperKinds, TheMenuOfTheIconHasWhatIsMadeMost)
{
    Names common;
    for (const PaperKind& kind : PaperKinds()) {
        if (kind.isCommon) {
            common.emplace_back(kind.name);
        }
    }
    EXPECT_EQ(common, Names({"graph", "cornell", "dots", "lined", "grid"}));
}

TEST_F(Gallery, ArrowsLeadToTheNearestPicture)
{
    using enum GalleryWindow::Direction;
    const auto walk = [&](std::size_t from, std::initializer_list<GalleryWindow::Direction> keys) {
        for (const auto key : keys) {
            from = app.Gallery().Neighbor(from, key);
        }
        return PaperKinds()[from].name;
    };
    EXPECT_EQ(walk(0, {Left, Up}), "graph");
    EXPECT_EQ(walk(0, {Right, Right, Down, Left}), "isometric");
    EXPECT_EQ(walk(5, {Right, Up}), "graph") << "the next row begins behind the last picture";
    EXPECT_EQ(walk(5, {Down, Down}), "brick");
    EXPECT_EQ(walk(12, {Up, Up, Down}), "hexagon");
    EXPECT_EQ(walk(13, {Right, Down}), PaperKinds().back().name);
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
    for (const char* const end : {"victim", "missing", "/proc/self/fd/1"}) {
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
    EXPECT_EQ(disabled(&window, true), Names{"FileSave"}) << "the dialog was canceled";
    platform.saveAnswer = FolderItem(folder / "page.pdf");
    window.PushButtonGenerate_Action();
    EXPECT_EQ(disabled(&window, true), Names{"FileSave"}) << "a page is no settings file";
    window.FileSaveAs_Action();
    EXPECT_EQ(disabled(&window, true), Names{});
}

}  // namespace
}  // namespace linealis::test
