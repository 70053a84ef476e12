#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace linealis::bench {

/// The parameters of zlib's deflateTune.
struct Tuning {
    int goodLength;
    int maxLazy;
    int niceLength;
    int maxChain;
};

/// Returns the tuning that the program used for the page it compressed last, or nothing if it left level 9 untuned.
/// Observed in the program's own call of zlib, so that the benchmark does not duplicate the choice.
std::optional<Tuning> LastTuning();
void ForgetLastTuning();

/// Compresses at level 9, feeding zlib in pieces of the same size as the program does. Returns the size of the zlib
/// stream.
std::size_t Deflate(std::string_view stream, const std::optional<Tuning>& tuning);

}  // namespace linealis::bench
