#pragma once

#include <QString>
#include <string_view>

namespace linealis::desktop {

/// Converts a text of the core, which is UTF-8.
inline QString ToQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Escapes the ampersands of a text for a menu, where a single one marks the access key.
inline QString MenuText(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace linealis::desktop
