#pragma once

#include <ctime>

namespace linealis {

/// Returns how many seconds the time zone of the process is ahead of UTC at a moment, in seconds since 1970.
int SecondsEastOfUtc(std::time_t moment);

}  // namespace linealis
