#pragma once

#include "text/Message.h"

#include <QString>
#include <string_view>

namespace linealis::desktop {

/// Converts a text that is the same in all languages, in UTF-8.
inline QString ToQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The language of the windows, whose translation is installed (see InstallLanguage).
const Language& LanguageOfWindows();

/// Returns a message in the language of the windows.
QString ToQt(const Message& message);

/// Returns a caption, a title, or another text that the core lists, in the language of the windows.
QString Translated(std::string_view english);

/// Escapes the ampersands of a text for a menu, where a single one marks the access key.
inline QString MenuText(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace linealis::desktop
