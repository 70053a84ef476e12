#include "Deflate.h"

#include <zlib.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace linealis::bench {

namespace {

std::optional<Tuning> lastTuning;

}  // namespace

std::optional<Tuning> LastTuning()
{
    return lastTuning;
}

void ForgetLastTuning()
{
    lastTuning.reset();
}

std::size_t Deflate(std::string_view stream, const std::optional<Tuning>& tuning)
{
    constexpr int level = 9;
    constexpr std::size_t pieceSize = 50000;
    constexpr std::size_t outputSize = 20000;
    z_stream zlib{};
    if (deflateInit(&zlib, level) != Z_OK) {
        std::fputs("zlib is out of memory\n", stderr);
        std::exit(1);
    }
    if (tuning) {
        deflateTune(&zlib, tuning->goodLength, tuning->maxLazy, tuning->niceLength, tuning->maxChain);
    }
    std::array<Bytef, outputSize> output{};
    std::size_t size = 0;
    const auto run = [&](std::string_view piece, int flush) {
        zlib.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(piece.data()));
        zlib.avail_in = static_cast<uInt>(piece.size());
        do {
            zlib.next_out = output.data();
            zlib.avail_out = static_cast<uInt>(output.size());
            deflate(&zlib, flush);
            size += output.size() - zlib.avail_out;
        } while (zlib.avail_out == 0);
    };
    for (std::size_t start = 0; start < stream.size(); start += pieceSize) {
        run(stream.substr(start, pieceSize), Z_NO_FLUSH);
    }
    run({}, Z_FINISH);
    deflateEnd(&zlib);
    return size;
}

}  // namespace linealis::bench

// The linker redirects every call of deflateTune to __wrap_deflateTune (see CMakeLists.txt).
extern "C" int __real_deflateTune(z_streamp stream, int goodLength, int maxLazy, int niceLength, int maxChain);

extern "C" int __wrap_deflateTune(z_streamp stream, int goodLength, int maxLazy, int niceLength, int maxChain)
{
    linealis::bench::lastTuning = {goodLength, maxLazy, niceLength, maxChain};
    return __real_deflateTune(stream, goodLength, maxLazy, niceLength, maxChain);
}
// NOLINTEND(bugprone-reserved-identifier)
