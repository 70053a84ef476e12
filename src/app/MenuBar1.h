#pragma once

#include "kinds/PaperKinds.h"

#include <string_view>
#include <vector>

namespace linealis {

/// The action of a menu item.
enum class Command {
    Separator,
    Open,
    Save,
    SaveAs,
    CloseWindow,
    Quit,
    Undo,
    Cut,
    Copy,
    Paste,
    Clear,
    About,
    VisitWebsite,
    CheckForLatestVersion,
    Preferences,
    Help,
    ShowPaper,
};

struct MenuItem {
    std::string_view name;
    std::string_view text;      ///< with "&" before the mnemonic letter
    std::string_view shortcut;  ///< "Cmd+O", or empty
    Command command;
    const PaperKind* kind = nullptr;  ///< of ShowPaper; otherwise null
};

struct Menu {
    std::string_view name;
    std::string_view text;
    std::vector<MenuItem> items;
};

/// Returns the only menu bar of the program. Its first menu is empty and has no text.
const std::vector<Menu>& MenuBar1();

/// Whether the item can be chosen now. `front` is the paper window in front, or null; `anyWindow` is whether any
/// window is open.
bool IsEnabled(const MenuItem& item, const PaperWindow* front, bool anyWindow);

}  // namespace linealis
