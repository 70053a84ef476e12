#include "platform/Platform.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace linealis {

LocalTime Platform::Now() const
{
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&seconds, &local);
    constexpr int firstYear = 1900;
    return {local.tm_year + firstYear,
            local.tm_mon + 1,
            local.tm_mday,
            local.tm_hour,
            local.tm_min,
            local.tm_sec,
            static_cast<int>(local.tm_gmtoff)};
}

std::string Platform::ShortDate() const
{
    const LocalTime now = Now();
    constexpr std::size_t longest = 40;
    std::array<char, longest> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", now.year, now.month, now.day);
    return text.data();
}

}  // namespace linealis
