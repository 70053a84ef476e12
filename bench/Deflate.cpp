#include "Deflate.h"

#include <zlib.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace linealis::bench {

std::size_t Deflate(std::string_view stream, int level)
{
    constexpr std::size_t pieceSize = 50000;
    constexpr std::size_t outputSize = 20000;
    z_stream zlib{};
    if (deflateInit(&zlib, level) != Z_OK) {
        std::fputs("zlib is out of memory\n", stderr);
        std::exit(1);
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
