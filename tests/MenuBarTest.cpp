#include "TestSupport.h"
#include "app/MenuBar1.h"

namespace linealis::test {
namespace {

struct Row {
    std::string_view name;
    std::string_view text;
    std::string_view shortcut;
    Command command;
    std::string_view kind = {};
};

const std::vector<Row> fileMenu = {
    {"FileOpen", "Open...", "Cmd+O", Command::Open},   {"FileSave", "Save...", "Cmd+S", Command::Save},
    {"FileSaveAs", "Save As...", "", Command::SaveAs}, {"FileClose", "Close Window", "Cmd+W", Command::CloseWindow},
    {"FileQuit", "Quit", "Cmd+Q", Command::Quit},
};
const std::vector<Row> editMenu = {
    {"EditUndo", "&Undo", "Cmd+Z", Command::Undo},
    {"UntitledMenu0", "-", "", Command::Separator},
    {"EditCut", "Cu&t", "Cmd+X", Command::Cut},
    {"EditCopy", "&Copy", "Cmd+C", Command::Copy},
    {"EditPaste", "&Paste", "Cmd+V", Command::Paste},
    {"EditClear", "Clear", "", Command::Clear},
    {"UntitledMenu4", "", "", Command::None},
    {"AppleAboutLinealis", "About Linealis...", "", Command::About},
    {"AppleVisitWebsite", "Visit Website", "", Command::VisitWebsite},
    {"AppleCheckForLatestVersion", "Check For Latest Version...", "", Command::CheckForLatestVersion},
    {"UntitledItem", "-", "", Command::Separator},
    {"EditPreferences", "Preferences", "", Command::Preferences},
    {"EditHelp", "Help", "Cmd+H", Command::Help},
};
const std::vector<Row> graphMenu = {
    {"WindowGraphPaper", "Graph Paper", "", Command::ShowPaper, "graph"},
    {"WindowIsometric", "Isometric", "", Command::ShowPaper, "isometric"},
    {"WindowAxonometric", "Axonometric", "", Command::ShowPaper, "axonometric"},
    {"WindowTrapezoid", "Trapezoid", "", Command::ShowPaper, "trapezoid"},
    {"WindowHexagon", "Hexagon", "", Command::ShowPaper, "hexagon"},
    {"WindowPolar", "Polar", "", Command::ShowPaper, "polar"},
    {"WindowEngineering", "Engineering", "", Command::ShowPaper, "engineering"},
    {"WindowLined", "Lined", "", Command::ShowPaper, "lined"},
    {"WindowDots", "Dots", "", Command::ShowPaper, "dots"},
    {"WindowCrosses", "Crosses", "", Command::ShowPaper, "crosses"},
    {"WindowCornell", "Note", "", Command::ShowPaper, "cornell"},
    {"WindowTernary", "Ternary", "", Command::ShowPaper, "ternary"},
    {"WindowGrid", "Grid", "", Command::ShowPaper, "grid"},
    {"WindowBrick", "Brick", "", Command::ShowPaper, "brick"},
};

void ExpectMenu(const Menu& menu, std::string_view name, std::string_view text, const std::vector<Row>& rows)
{
    EXPECT_EQ(menu.name, name);
    EXPECT_EQ(menu.text, text);
    ASSERT_EQ(menu.items.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const MenuItem& item = menu.items[i];
        EXPECT_EQ(item.name, rows[i].name);
        EXPECT_EQ(item.text, rows[i].text);
        EXPECT_EQ(item.shortcut, rows[i].shortcut) << item.name;
        EXPECT_EQ(item.command, rows[i].command) << item.name;
        EXPECT_EQ(item.kind == nullptr ? "" : item.kind->name, rows[i].kind) << item.name;
    }
}

TEST(MenuBar, HasItsMenusInTheirOrder)
{
    const std::vector<Menu>& menus = MenuBar1();
    ASSERT_EQ(menus.size(), 4U);
    ExpectMenu(menus[0], "UntitledMenu1", "", {});
    ExpectMenu(menus[1], "FileMenu", "&File", fileMenu);
    ExpectMenu(menus[2], "EditMenu", "&Edit", editMenu);
    ExpectMenu(menus[3], "WindowMenu", "Graph", graphMenu);
}

Names Disabled(const PaperWindow* front, bool anyWindow)
{
    Names names;
    for (const Menu& menu : MenuBar1()) {
        for (const MenuItem& item : menu.items) {
            if (!IsEnabled(item, front, anyWindow)) {
                names.emplace_back(item.name);
            }
        }
    }
    return names;
}

using MenuBarOfAWindow = GridTest;

TEST_F(MenuBarOfAWindow, SaveNeedsASettingsFile)
{
    const Names withoutFile = {"FileSave"};
    EXPECT_EQ(Disabled(window.get(), true), withoutFile);
    platform.saveAnswer = FolderItem();
    window->FileSaveAs_Action();
    window->FileOpen_Action();
    EXPECT_EQ(Disabled(window.get(), true), withoutFile) << "both dialogs were cancelled";
    platform.saveAnswer = page;
    window->PushButtonGenerate_Action();
    EXPECT_EQ(Disabled(window.get(), true), withoutFile) << "a page is no settings file";

    platform.saveAnswer = FolderItem(folder / "grid.setx");
    window->FileSaveAs_Action();
    EXPECT_EQ(Disabled(window.get(), true), Names{});
    window = Open();
    EXPECT_EQ(Disabled(window.get(), true), withoutFile) << "a window made anew";
    platform.openAnswer = platform.saveAnswer;
    window->FileOpen_Action();
    EXPECT_EQ(Disabled(window.get(), true), Names{});
}

TEST(MenuBar, WithoutAPaperWindowInFrontThereIsNothingToSave)
{
    EXPECT_EQ(Disabled(nullptr, true), (Names{"FileOpen", "FileSave", "FileSaveAs"}));
    EXPECT_EQ(Disabled(nullptr, false), (Names{"FileOpen", "FileSave", "FileSaveAs", "FileClose"}));
}

}  // namespace
}  // namespace linealis::test
