#include "core/PngChunks.h"

#include "exchange/CarriedText.h"
#include "exchange/PngText.h"
#include "text/Numbers.h"

#include <zlib.h>

#include <cmath>
#include <cstdint>

namespace linealis::web {

namespace {

std::string BigEndian(std::uint64_t number)
{
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        bytes += static_cast<char>(number >> shift & 0xFFU);
    }
    return bytes;
}

/// Returns a chunk: the length of its data, its type, the data, and a checksum of both.
std::string Chunk(std::string_view type, std::string_view data)
{
    const std::string checked = std::string(type) + std::string(data);
    const uLong sum = crc32(0, reinterpret_cast<const Bytef*>(checked.data()), static_cast<uInt>(checked.size()));
    return BigEndian(data.size()) + checked + BigEndian(sum);
}

}  // namespace

std::string WithResolutionAndText(std::string_view png, double dotsPerInch, std::string_view text)
{
    constexpr std::size_t headerSize = 25;  // length, type, 13 bytes, checksum
    constexpr double metersPerInch = 0.0254;
    const std::size_t end = pngSignature.size() + headerSize;
    if (!png.starts_with(pngSignature) || png.size() < end) {
        return std::string(png);
    }
    const std::string perMeter =
        BigEndian(static_cast<std::uint64_t>(truncated(std::round(dotsPerInch / metersPerInch))));
    const std::string afterKeyword(5, '\0');  // not compressed, no language, no translated keyword
    return std::string(png.substr(0, end)) + Chunk("pHYs", perMeter + perMeter + '\x01') +
           Chunk("iTXt", std::string(carriedKeyword) + afterKeyword + std::string(text)) +
           std::string(png.substr(end));
}

}  // namespace linealis::web
