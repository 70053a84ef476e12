#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace linealis::bench {

/// What zlib's deflateTune takes.
struct Tuning {
    int goodLength;
    int maxLazy;
    int niceLength;
    int maxChain;
};

/// The tuning that the program chose for the last page that it compressed; nothing if it left level 9 as it is.
/// Seen in its own call of zlib, so that the benchmark has no second copy of its choice.
std::optional<Tuning> LastTuning();
void ForgetLastTuning();

/// Compresses at level 9, in the pieces in which the program feeds zlib. Returns the size of the zlib stream.
std::size_t Deflate(std::string_view stream, const std::optional<Tuning>& tuning);

}  // namespace linealis::bench
