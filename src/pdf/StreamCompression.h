#pragma once

#include "pdf/CapacityString.h"
#include "platform/Turns.h"

#include <string_view>

namespace linealis {

/// Returns the text as one zlib stream of deflate's level 9. Streams below 64 KiB are compressed in several ways,
/// and the smallest counts. Takes a turn per piece of 50000 bytes. Throws std::bad_alloc when memory runs out.
CapacityString Deflated(std::string_view text, Turns& turns);

}  // namespace linealis
