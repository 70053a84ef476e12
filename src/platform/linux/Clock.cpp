#include "platform/Platform.h"

#include <charconv>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string_view>

namespace linealis {

namespace {

/// Returns the time in SOURCE_DATE_EPOCH, in seconds since 1970, which makes files reproducible. Ignores a value
/// that is not a time from 1970 to the year 9999.
std::optional<std::time_t> ToldMoment()
{
    constexpr std::time_t endOf9999 = 253402300799;
    const char* const variable = std::getenv("SOURCE_DATE_EPOCH");
    if (variable == nullptr) {
        return std::nullopt;
    }
    const std::string_view text = variable;
    std::time_t seconds = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), seconds);
    const bool isWhole = result.ec == std::errc() && result.ptr == text.data() + text.size();
    return isWhole && seconds >= 0 && seconds <= endOf9999 ? std::optional(seconds) : std::nullopt;
}

}  // namespace

LocalTime Platform::Now() const
{
    std::tm local{};
    if (const auto told = ToldMoment()) {
        ::gmtime_r(&*told, &local);
    } else {
        const std::time_t seconds = std::time(nullptr);
        ::localtime_r(&seconds, &local);
    }
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
