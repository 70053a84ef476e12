#pragma once

#include "app/MenuBar1.h"

#include <QMainWindow>
#include <functional>

class QKeyEvent;

namespace linealis::desktop {

/// What a menu bar asks when it is used.
struct MenuHost {
    std::function<void(const MenuItem& item)> perform;
    std::function<bool(const MenuItem& item)> isEnabled;
    std::function<void(const MenuItem& item)> refuse;  ///< the shortcut of an item that is not enabled
};

/// Gives a window the program's menu bar. Which items are enabled shows as long as their menu is open.
void InstallMenus(QMainWindow& window, const MenuHost& host);

/// Whether an item for editing text has something to edit in the field that has the focus. True for any other item.
bool CanEditText(Command command);

/// Whether the key event, which is to be a shortcut or text, is undo or redo in a text field that has none. It
/// would take the key all the same, which then is to be the form's.
bool IsUndoOfNothing(const QObject* receiver, const QKeyEvent& key);

/// Undo, cut, copy, paste and clear in the text field that has the focus, if they can be done.
void EditText(Command command);

}  // namespace linealis::desktop
