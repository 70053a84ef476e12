#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// The number of characters of a UTF-8 text. A byte that is no part of a character counts as one.
std::size_t CharacterCount(std::string_view text);

/// The characters of a UTF-8 text, a piece each.
std::vector<std::string_view> Characters(std::string_view text);

/// Whether the encoding has every character of the UTF-8 text.
bool IsInMacRoman(std::string_view text);

/// The UTF-8 text in the encoding that the page's fonts are declared in, MacRomanEncoding (ISO 32000-1, Annex
/// D.2), a byte a character. What the encoding lacks becomes "?". ASCII goes through unchanged.
std::string ToMacRoman(std::string_view text);

/// The text in that encoding as UTF-8. A code that the encoding does not have becomes U+FFFD.
std::string FromMacRoman(std::string_view bytes);

}  // namespace linealis
