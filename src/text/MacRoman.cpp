#include "text/MacRoman.h"

#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace linealis {

namespace {

/// Maps the codes 128 to 255 to Unicode; 0 marks a code that the encoding does not define. MacRomanEncoding omits
/// the mathematical symbols of the Mac OS character set, and its code 219 is the currency sign, not the euro sign.
constexpr std::array<std::uint16_t, 128> upperHalf = {
    0x00C4, 0x00C5, 0x00C7, 0x00C9, 0x00D1, 0x00D6, 0x00DC, 0x00E1, 0x00E0, 0x00E2, 0x00E4, 0x00E3, 0x00E5,
    0x00E7, 0x00E9, 0x00E8, 0x00EA, 0x00EB, 0x00ED, 0x00EC, 0x00EE, 0x00EF, 0x00F1, 0x00F3, 0x00F2, 0x00F4,
    0x00F6, 0x00F5, 0x00FA, 0x00F9, 0x00FB, 0x00FC, 0x2020, 0x00B0, 0x00A2, 0x00A3, 0x00A7, 0x2022, 0x00B6,
    0x00DF, 0x00AE, 0x00A9, 0x2122, 0x00B4, 0x00A8, 0x0000, 0x00C6, 0x00D8, 0x0000, 0x00B1, 0x0000, 0x0000,
    0x00A5, 0x00B5, 0x0000, 0x0000, 0x0000, 0x0000, 0x0000, 0x00AA, 0x00BA, 0x0000, 0x00E6, 0x00F8, 0x00BF,
    0x00A1, 0x00AC, 0x0000, 0x0192, 0x0000, 0x0000, 0x00AB, 0x00BB, 0x2026, 0x00A0, 0x00C0, 0x00C3, 0x00D5,
    0x0152, 0x0153, 0x2013, 0x2014, 0x201C, 0x201D, 0x2018, 0x2019, 0x00F7, 0x0000, 0x00FF, 0x0178, 0x2044,
    0x00A4, 0x2039, 0x203A, 0xFB01, 0xFB02, 0x2021, 0x00B7, 0x201A, 0x201E, 0x2030, 0x00C2, 0x00CA, 0x00C1,
    0x00CB, 0x00C8, 0x00CD, 0x00CE, 0x00CF, 0x00CC, 0x00D3, 0x00D4, 0x0000, 0x00D2, 0x00DA, 0x00DB, 0x00D9,
    0x0131, 0x02C6, 0x02DC, 0x00AF, 0x02D8, 0x02D9, 0x02DA, 0x00B8, 0x02DD, 0x02DB, 0x02C7,
};

constexpr std::size_t firstUpperCode = 128;

/// Returns the code of the character, or -1 if the encoding lacks it.
int CodeOf(std::uint32_t character)
{
    if (character < firstUpperCode) {
        return static_cast<int>(character);
    }
    const auto* const found = std::find(upperHalf.begin(), upperHalf.end(), character);
    return found == upperHalf.end()
               ? -1
               : static_cast<int>(firstUpperCode + static_cast<std::size_t>(found - upperHalf.begin()));
}

}  // namespace

std::size_t CharacterCount(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t position = 0; position < text.size(); ++count) {
        NextCharacter(text, position);
    }
    return count;
}

std::vector<std::string_view> Characters(std::string_view text)
{
    std::vector<std::string_view> characters;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        NextCharacter(text, position);
        characters.push_back(text.substr(start, position - start));
    }
    return characters;
}

std::string ToMacRoman(std::string_view text)
{
    std::string encoded;
    for (std::size_t position = 0; position < text.size();) {
        const int code = CodeOf(NextCharacter(text, position));
        encoded += code < 0 ? '?' : static_cast<char>(code);
    }
    return encoded;
}

std::string FromMacRoman(std::string_view bytes)
{
    constexpr std::uint32_t replacement = 0xFFFD;
    std::string text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < firstUpperCode) {
            text += byte;
            continue;
        }
        const std::uint32_t listed = upperHalf[code - firstUpperCode];
        const std::uint32_t character = listed == 0 ? replacement : listed;
        if (character >= 0x800) {
            text += static_cast<char>(0xE0U | character >> 12U);
            text += static_cast<char>(0x80U | (character >> 6U & 0x3FU));
        } else {
            text += static_cast<char>(0xC0U | character >> 6U);
        }
        text += static_cast<char>(0x80U | (character & 0x3FU));
    }
    return text;
}

bool IsInMacRoman(std::string_view text)
{
    for (std::size_t position = 0; position < text.size();) {
        if (CodeOf(NextCharacter(text, position)) < 0) {
            return false;
        }
    }
    return true;
}

}  // namespace linealis
