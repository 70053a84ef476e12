#include "TestSupport.h"
#include "app/MenuBar1.h"

namespace linealis::test {
namespace {

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
