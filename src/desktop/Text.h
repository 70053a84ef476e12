#pragma once

#include <QString>
#include <string_view>

namespace linealis::desktop {

/// The core's texts are UTF-8.
inline QString ToQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace linealis::desktop
