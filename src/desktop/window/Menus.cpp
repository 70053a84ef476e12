#include "desktop/window/Menus.h"

#include "desktop/system/Text.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

namespace linealis::desktop {

namespace {

/// Converts the shortcut of an item. "Cmd" stands for the platform's command key, which Qt calls Ctrl everywhere.
QKeySequence ShortcutOf(const MenuItem& item)
{
    return QKeySequence(ToQt(item.shortcut).replace(QStringLiteral("Cmd"), QStringLiteral("Ctrl")));
}

/// Returns the role that moves items about the program itself to the application menu of macOS. All other items
/// stay.
QAction::MenuRole RoleOf(Command command)
{
    switch (command) {
    case Command::About:
        return QAction::AboutRole;
    case Command::VisitWebsite:
    case Command::CheckForLatestVersion:
        return QAction::ApplicationSpecificRole;
    default:
        return QAction::NoRole;
    }
}

/// Returns the text field that has the focus if the user can edit it, otherwise null.
QLineEdit* EditableField()
{
    auto* const field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    return field != nullptr && field->isEnabled() && !field->isReadOnly() ? field : nullptr;
}

void AddItem(QMenu& menu, const MenuItem& item, const MenuHost& host)
{
    if (item.command == Command::Separator) {
        menu.addSeparator();
        return;
    }
    QAction* const action = menu.addAction(Translated(item.text));
    action->setObjectName(ToQt(item.name));
    action->setMenuRole(RoleOf(item.command));
    if (!item.shortcut.empty()) {
        action->setShortcut(ShortcutOf(item));
    }
    QObject::connect(action, &QAction::triggered, &menu, [&item, host] {
        if (host.isEnabled(item)) {
            host.perform(item);
        } else {
            host.refuse(item);
        }
    });
    QObject::connect(&menu, &QMenu::aboutToShow, action,
                     [action, &item, host] { action->setEnabled(host.isEnabled(item)); });
    // While the menu is closed, the item must be enabled, or else its shortcut would not work: no signal tells
    // when the item becomes usable again. The check happens when it is triggered.
    QObject::connect(&menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
}

}  // namespace

void InstallMenus(QMainWindow& window, const MenuHost& host)
{
    for (const Menu& menu : MenuBar1()) {
        if (menu.text.empty()) {
            continue;
        }
        QMenu* const shown = window.menuBar()->addMenu(Translated(menu.text));
        shown->setObjectName(ToQt(menu.name));
        for (const MenuItem& item : menu.items) {
            AddItem(*shown, item, host);
        }
    }
}

bool CanEditText(Command command)
{
    const QLineEdit* const field = EditableField();
    switch (command) {
    case Command::Undo:
        return field != nullptr && field->isUndoAvailable();
    case Command::Cut:
    case Command::Copy:
    case Command::Clear:
        return field != nullptr && field->hasSelectedText();
    case Command::Paste:
        return field != nullptr && !QApplication::clipboard()->text().isEmpty();
    default:
        return true;
    }
}

bool IsUndoOfNothing(const QObject* receiver, const QKeyEvent& key)
{
    const auto* const field = qobject_cast<const QLineEdit*>(receiver);
    return field != nullptr && ((key.matches(QKeySequence::Undo) && !field->isUndoAvailable()) ||
                                (key.matches(QKeySequence::Redo) && !field->isRedoAvailable()));
}

void EditText(Command command)
{
    if (!CanEditText(command)) {
        return;
    }
    QLineEdit& field = *EditableField();
    switch (command) {
    case Command::Undo:
        field.undo();
        break;
    case Command::Cut:
        field.cut();
        break;
    case Command::Copy:
        field.copy();
        break;
    case Command::Paste:
        field.paste();
        break;
    case Command::Clear:
        field.del();
        break;
    default:
        break;
    }
}

}  // namespace linealis::desktop
