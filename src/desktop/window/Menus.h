#pragma once

#include "app/MenuBar1.h"

#include <QMainWindow>
#include <functional>

class QKeyEvent;

namespace linealis::desktop {

/// The functions that a menu bar calls.
struct MenuHost {
    std::function<void(const MenuItem& item)> perform;
    std::function<bool(const MenuItem& item)> isEnabled;
    std::function<void(const MenuItem& item)> refuse;  ///< called for the shortcut of an item that is not enabled
};

/// Adds the program's menu bar to a window. Items are shown as disabled only while their menu is open.
void InstallMenus(QMainWindow& window, const MenuHost& host);

/// Whether a command for editing text has something to act on in the field that has the focus. True for all other
/// commands.
bool CanEditText(Command command);

/// Whether the key event is undo or redo for a text field that has nothing to undo or redo. The field would
/// consume the key anyway, so the caller must redirect it to the form.
bool IsUndoOfNothing(const QObject* receiver, const QKeyEvent& key);

/// Performs undo, cut, copy, paste, or clear in the text field that has the focus. Does nothing if that is
/// impossible.
void EditText(Command command);

}  // namespace linealis::desktop
