#include "platform/TimeZone.h"

namespace linealis {

int SecondsEastOfUtc(std::time_t moment)
{
    std::tm local{};
    ::localtime_r(&moment, &local);
    return static_cast<int>(local.tm_gmtoff);
}

}  // namespace linealis
