#pragma once

#include <QString>
#include <string_view>

namespace linealis::desktop {

/// The core's texts are UTF-8.
inline QString ToQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text as it stands in a menu, where an ampersand alone would name a key.
inline QString MenuText(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace linealis::desktop
