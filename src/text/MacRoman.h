#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// Returns the number of characters in a UTF-8 text. A byte that is not part of a valid character counts as one.
std::size_t CharacterCount(std::string_view text);

/// Splits a UTF-8 text into its characters. The views point into `text`; a byte that is not part of a valid
/// character is an element of its own.
std::vector<std::string_view> Characters(std::string_view text);

/// Whether MacRomanEncoding contains every character of the UTF-8 text.
bool IsInMacRoman(std::string_view text);

/// Converts UTF-8 text to MacRomanEncoding (ISO 32000-1, Annex D.2), the encoding that the fonts of a page are
/// declared in. Each character becomes one byte; a character that the encoding lacks becomes "?". ASCII is
/// unchanged.
std::string ToMacRoman(std::string_view text);

/// Converts MacRomanEncoding to UTF-8. A byte that the encoding does not define becomes U+FFFD.
std::string FromMacRoman(std::string_view bytes);

}  // namespace linealis
