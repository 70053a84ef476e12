#include "platform/Platform.h"
#include "platform/TimeZone.h"

#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string_view>

namespace linealis {

namespace {

/// Returns the time in SOURCE_DATE_EPOCH, in seconds since 1970, which makes files reproducible. Ignores a value
/// that is not a time from 1970 to the year 9999.
std::optional<std::int64_t> ToldMoment()
{
    constexpr std::int64_t endOf9999 = 253402300799;
    const char* const variable = std::getenv("SOURCE_DATE_EPOCH");
    if (variable == nullptr) {
        return std::nullopt;
    }
    const std::string_view text = variable;
    std::int64_t seconds = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), seconds);
    const bool isWhole = result.ec == std::errc() && result.ptr == text.data() + text.size();
    return isWhole && seconds >= 0 && seconds <= endOf9999 ? std::optional(seconds) : std::nullopt;
}

}  // namespace

LocalTime Platform::Now() const
{
    const std::optional<std::int64_t> told = ToldMoment();
    const std::time_t now = std::time(nullptr);
    const std::int64_t moment = told ? *told : std::int64_t{now};
    const int secondsEast = told ? 0 : SecondsEastOfUtc(now);
    const std::chrono::sys_seconds shown{std::chrono::seconds(moment + secondsEast)};
    const auto midnight = std::chrono::floor<std::chrono::days>(shown);
    const std::chrono::year_month_day date(midnight);
    const std::chrono::hh_mm_ss time(shown - midnight);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count()),
            secondsEast};
}

}  // namespace linealis
