#include "exchange/PngText.h"

#include "exchange/CarriedText.h"

#include <algorithm>
#include <cstdint>

namespace linealis {

namespace {

/// Returns the big-endian number in the first four bytes.
std::uint32_t NumberIn(std::string_view bytes)
{
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(0, 4)) {
        number = number << 8U | static_cast<unsigned char>(byte);
    }
    return number;
}

// The parts of a chunk: length, type, data, checksum.
constexpr std::size_t lengthSize = 4, typeSize = 4, checksumSize = 4;
constexpr std::string_view textType = "iTXt";

}  // namespace

std::string TextInPng(std::string_view png)
{
    const std::string head = std::string(carriedKeyword) + std::string(5, '\0');
    png.remove_prefix(std::min(pngSignature.size(), png.size()));
    while (png.size() >= lengthSize + typeSize + checksumSize) {
        const std::size_t length = NumberIn(png);
        if (length > png.size() - lengthSize - typeSize - checksumSize) {
            break;
        }
        const std::string_view type = png.substr(lengthSize, typeSize);
        const std::string_view data = png.substr(lengthSize + typeSize, length);
        if (type == textType && data.starts_with(head)) {
            return std::string(data.substr(head.size()));
        }
        png.remove_prefix(lengthSize + typeSize + length + checksumSize);
    }
    return "";
}

}  // namespace linealis
