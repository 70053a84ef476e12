#pragma once

#include "kinds/PaperKinds.h"

#include <string_view>
#include <vector>

namespace linealis {

/// What a menu item does.
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
    std::string_view text;      ///< "&" stands before the letter of its mnemonic
    std::string_view shortcut;  ///< "Cmd+O", or empty
    Command command;
    const PaperKind* kind = nullptr;  ///< of ShowPaper
};

struct Menu {
    std::string_view name;
    std::string_view text;
    std::vector<MenuItem> items;
};

/// The one menu bar of the program. An empty menu without a text stands first.
const std::vector<Menu>& MenuBar1();

/// Whether an item can be chosen: `front` is the paper window in front, or none; `anyWindow` whether any is open.
bool IsEnabled(const MenuItem& item, const PaperWindow* front, bool anyWindow);

}  // namespace linealis
