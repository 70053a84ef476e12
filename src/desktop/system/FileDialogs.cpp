#include "desktop/system/FileDialogs.h"

#include "desktop/system/WindowSettings.h"

#include <QDir>
#include <QStandardPaths>

namespace linealis::desktop {

QString DocumentsFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

void GoToFolder(QFileDialog& dialog, const QString& key)
{
    const QString last = WindowSettings().value(key).toString();
    dialog.setDirectory(!last.isEmpty() && QDir(last).exists() ? last : DocumentsFolder());
}

void KeepFolder(const QFileDialog& dialog, const QString& key)
{
    WindowSettings().setValue(key, dialog.directory().absolutePath());
}

QString AsFileName(QString text)
{
    // Characters. At up to four bytes each, the name stays below the usual limit of 255 bytes, even with an
    // extension.
    constexpr int longest = 60;
    text = text.replace(QLatin1Char('/'), QLatin1Char('-')).simplified();
    for (QChar& character : text) {
        character = character.isPrint() ? character : QLatin1Char(' ');
    }
    while (text.startsWith(QLatin1Char('.')) || text.startsWith(QLatin1Char(' '))) {
        text.remove(0, 1);
    }
    return text.left(longest).trimmed();
}

}  // namespace linealis::desktop
