#pragma once

#include "app/MenuBar1.h"

#include <QMainWindow>
#include <functional>

namespace linealis::desktop {

/// What a menu bar asks when it is used.
struct MenuHost {
    std::function<void(const MenuItem& item)> perform;
    std::function<bool(const MenuItem& item)> isEnabled;
};

/// Gives a window the program's menu bar. The enabling of its items is settled each time a menu opens.
void InstallMenus(QMainWindow& window, const MenuHost& host);

/// Settles the enabling of a window's menu items now, for their shortcuts.
void UpdateMenus(QMainWindow& window);

/// Whether an item for editing text has something to edit in the field that has the focus. True for any other item.
bool CanEditText(Command command);

/// Undo, cut, copy, paste and clear in the text field that has the focus, if they can be done.
void EditText(Command command);

}  // namespace linealis::desktop
