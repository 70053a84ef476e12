#include "platform/Platform.h"

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

}  // namespace linealis
