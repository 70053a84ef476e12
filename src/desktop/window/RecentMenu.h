#pragma once

#include "desktop/system/RecentFiles.h"

#include <QMenu>
#include <QString>
#include <functional>

namespace linealis::desktop {

/// Fills the menu with the settings files used last, and an item that clears the list. It is filled anew each time
/// it opens. `open` is called with the path of a file. A menu with nothing to open is disabled.
void FillRecentMenu(QMenu& menu, const RecentFiles& recent, const std::function<void(const QString& path)>& open);

/// The folder of a file as people read it: the home folder is "~".
QString ShortFolder(const FolderItem& file);

}  // namespace linealis::desktop
