#include "platform/TimeZone.h"

#include <mutex>

namespace linealis {

int SecondsEastOfUtc(std::time_t moment)
{
    static std::mutex oneAtATime;  // std::gmtime returns a shared object
    const std::lock_guard guard(oneAtATime);
    const std::tm* const utc = std::gmtime(&moment);
    if (utc == nullptr) {
        return 0;
    }
    std::tm calendar = *utc;
    calendar.tm_isdst = -1;  // as it is at that moment
    return static_cast<int>(std::difftime(moment, std::mktime(&calendar)));
}

}  // namespace linealis
