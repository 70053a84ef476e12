#pragma once

#include "desktop/system/RecentFiles.h"

#include <QMenu>
#include <QString>
#include <functional>

namespace linealis::desktop {

/// Fills the menu with the recent settings files and an item that clears the list. Fills it again each time it or
/// its parent menu opens. Calls `open` with the path of the chosen file. Disables the menu if there are no files.
void FillRecentMenu(QMenu& menu, const RecentFiles& recent, const std::function<void(const QString& path)>& open);

/// Returns the folder of a file for display, with "~" for the home folder.
QString ShortFolder(const FolderItem& file);

}  // namespace linealis::desktop
