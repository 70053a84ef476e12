#pragma once

#include <cstddef>
#include <string_view>

namespace linealis::bench {

/// Compresses at a level of zlib, 1 to 9, feeding zlib in pieces of the same size as the program does. Returns the
/// size of the zlib stream.
std::size_t Deflate(std::string_view stream, int level);

}  // namespace linealis::bench
