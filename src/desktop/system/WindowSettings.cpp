#include "desktop/system/WindowSettings.h"

#include <QStandardPaths>

namespace linealis::desktop {

WindowSettings::WindowSettings()
    : QSettings(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                    QStringLiteral("/windows.ini"),
                QSettings::IniFormat)
{}

}  // namespace linealis::desktop
