#include "desktop/window/RecentMenu.h"

#include "desktop/system/Text.h"

#include <QCoreApplication>
#include <QDir>
#include <algorithm>
#include <vector>

namespace linealis::desktop {

namespace {

QString RecentText(const char* text)
{
    return QCoreApplication::translate("RecentMenu", text);
}

constexpr int widestName = 400;  // device-independent pixels

/// Returns the name of the file, with its folder if another file in the list has the same name.
QString NameAmong(const std::vector<FolderItem>& files, const FolderItem& file)
{
    const auto isNamesake = [&](const FolderItem& other) { return other.Name() == file.Name(); };
    const QString name = ToQt(file.Name()).simplified();
    return std::count_if(files.begin(), files.end(), isNamesake) == 1
               ? name
               : QStringLiteral("%1 - %2").arg(name, ShortFolder(file));
}

/// Returns the text of a menu item: "&1 name", or "1&0 name" for the tenth. A long name is cut in the middle,
/// because its extension at the end shows the kind.
QString Numbered(std::size_t number, const QString& text, const QFontMetrics& font)
{
    const QString name = MenuText(font.elidedText(text, Qt::ElideMiddle, widestName));
    const QString digits = QString::number(number);
    return digits.chopped(1) + QLatin1Char('&') + digits.back() + QLatin1Char(' ') + name;
}

void Fill(QMenu& menu, const RecentFiles& recent, const std::function<void(const QString& path)>& open)
{
    // One of the old items may have caused the current event, so they are deleted later.
    for (QAction* const old : menu.actions()) {
        menu.removeAction(old);
        old->setObjectName({});
        old->deleteLater();
    }
    std::size_t number = 0;
    const std::vector<FolderItem> files = recent.List();
    for (const FolderItem& file : files) {
        const QString path = ToQt(file.Path().string());
        QAction* const action = menu.addAction(Numbered(++number, NameAmong(files, file), menu.fontMetrics()));
        action->setObjectName(QStringLiteral("Recent%1").arg(number));
        action->setToolTip(path);
        QObject::connect(action, &QAction::triggered, &menu, [open, path] { open(path); });
    }
    menu.setEnabled(number > 0);
    menu.addSeparator();
    QAction* const clear = menu.addAction(RecentText("Clear Recent Files"));
    clear->setObjectName(QStringLiteral("RecentClear"));
    QObject::connect(clear, &QAction::triggered, &menu, [&menu, recent] {
        recent.Clear();
        menu.setEnabled(false);
    });
}

}  // namespace

QString ShortFolder(const FolderItem& file)
{
    const QString folder = ToQt(file.Path().parent_path().string());
    const QString home = QDir::homePath();
    const bool isInHome = folder == home || folder.startsWith(home + QLatin1Char('/'));
    return isInHome ? QLatin1Char('~') + folder.mid(home.size()) : folder;
}

void FillRecentMenu(QMenu& menu, const RecentFiles& recent, const std::function<void(const QString& path)>& open)
{
    menu.setToolTipsVisible(true);
    const auto fill = [&menu, recent, open] { Fill(menu, recent, open); };
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, fill);
    // The parent menu shows whether this menu is enabled, so update it when the parent opens, too.
    if (auto* const parent = qobject_cast<QMenu*>(menu.parent())) {
        QObject::connect(parent, &QMenu::aboutToShow, &menu, fill);
    }
    fill();
}

}  // namespace linealis::desktop
