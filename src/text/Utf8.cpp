#include "text/Utf8.h"

#include <cstddef>

namespace linealis {

std::uint32_t NextCharacter(std::string_view text, std::size_t& position)
{
    const auto byteAt = [&](std::size_t i) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(text[i]));
    };
    const std::uint32_t first = byteAt(position++);
    if (first < 0x80) {
        return first;
    }
    std::size_t following = 0;
    std::uint32_t character = 0;
    std::uint32_t smallest = 0;
    if (first >= 0xC0 && first < 0xE0) {
        following = 1;
        character = first & 0x1FU;
        smallest = 0x80;
    } else if (first >= 0xE0 && first < 0xF0) {
        following = 2;
        character = first & 0x0FU;
        smallest = 0x800;
    } else if (first >= 0xF0 && first < 0xF8) {
        following = 3;
        character = first & 0x07U;
        smallest = 0x10000;
    }
    if (following == 0 || text.size() - position < following) {
        return noCharacter;
    }
    for (std::size_t i = 0; i < following; ++i) {
        const std::uint32_t next = byteAt(position + i);
        if ((next & 0xC0U) != 0x80U) {
            return noCharacter;
        }
        character = character << 6U | (next & 0x3FU);
    }
    if (character < smallest) {
        return noCharacter;
    }
    position += following;
    return character;
}

}  // namespace linealis
