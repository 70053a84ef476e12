#include "app/MenuBar1.h"

#include <algorithm>

namespace linealis {

namespace {

Menu FileMenu()
{
    return {"FileMenu",
            "&File",
            {
                {"FileOpen", "Open...", "Cmd+O", Command::Open},
                {"FileSave", "Save...", "Cmd+S", Command::Save},
                {"FileSaveAs", "Save As...", "", Command::SaveAs},
                {"FileClose", "Close Window", "Cmd+W", Command::CloseWindow},
                {"FileQuit", "Quit", "Cmd+Q", Command::Quit},
            }};
}

Menu EditMenu()
{
    return {"EditMenu",
            "&Edit",
            {
                {"EditUndo", "&Undo", "Cmd+Z", Command::Undo},
                {"UntitledMenu0", "-", "", Command::Separator},
                {"EditCut", "Cu&t", "Cmd+X", Command::Cut},
                {"EditCopy", "&Copy", "Cmd+C", Command::Copy},
                {"EditPaste", "&Paste", "Cmd+V", Command::Paste},
                {"EditClear", "Clear", "", Command::Clear},
                {"UntitledMenu4", "", "", Command::Separator},
                {"AppleAboutLinealis", "About Linealis...", "", Command::About},
                {"AppleVisitWebsite", "Visit Website", "", Command::VisitWebsite},
                {"AppleCheckForLatestVersion", "Check For Latest Version...", "", Command::CheckForLatestVersion},
                {"UntitledItem", "-", "", Command::Separator},
                {"EditPreferences", "Preferences", "", Command::Preferences},
                {"EditHelp", "Help", "Cmd+H", Command::Help},
            }};
}

Menu GraphMenu()
{
    std::vector<const PaperKind*> kinds;
    for (const PaperKind& kind : PaperKinds()) {
        kinds.push_back(&kind);
    }
    std::sort(kinds.begin(), kinds.end(),
              [](const PaperKind* a, const PaperKind* b) { return a->menuPosition < b->menuPosition; });
    Menu menu{"WindowMenu", "Graph", {}};
    for (const PaperKind* const kind : kinds) {
        menu.items.push_back({kind->menuItem, kind->menuText, "", Command::ShowPaper, kind});
    }
    return menu;
}

}  // namespace

const std::vector<Menu>& MenuBar1()
{
    static const std::vector<Menu> menus = {{"UntitledMenu1", "", {}}, FileMenu(), EditMenu(), GraphMenu()};
    return menus;
}

bool IsEnabled(const MenuItem& item, const PaperWindow* front, bool anyWindow)
{
    switch (item.command) {
    case Command::Open:
    case Command::SaveAs:
        return front != nullptr;
    case Command::Save:
        return front != nullptr && !front->OurFolderItem().IsEmpty();
    case Command::CloseWindow:
        return anyWindow;
    default:
        return true;
    }
}

}  // namespace linealis
