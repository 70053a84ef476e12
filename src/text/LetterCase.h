#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace linealis {

/// Returns the lowercase form of an ASCII letter and any other byte unchanged. Independent of the locale.
inline char SmallLetter(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Returns the text with its ASCII letters in lowercase.
inline std::string InSmallLetters(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), SmallLetter);
    return text;
}

/// Whether the texts are equal, ignoring the case of ASCII letters.
inline bool IsSameText(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return SmallLetter(x) == SmallLetter(y); });
}

}  // namespace linealis
