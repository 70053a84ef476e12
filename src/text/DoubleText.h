#pragma once

#include <string>

namespace linealis {

// Texts of doubles as std::to_chars writes them, also with standard libraries that lack it for doubles.

/// Writes a finite number that is not negative, rounded exactly to the given number of decimals, at `out`, which
/// must have room for it. Returns the end of the text. May write a zero byte there.
char* WriteFixed(char* out, double magnitude, int decimals);

/// Returns the shortest text that reads back as the same number, with an exponent only if it is shorter that way.
std::string ShortestText(double number);

}  // namespace linealis
