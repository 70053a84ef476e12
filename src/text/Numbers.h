#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace linealis {

// Conversion between numbers and text for forms, pages, and files. Nothing here depends on the locale: numbers are
// always written with a decimal point and are read with either a point or a comma.

/// Whether the byte is an ASCII digit.
constexpr bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Powers of ten with exponents 0 to 15, all of them exact as doubles.
inline constexpr std::array<double, 16> powersOfTen = {1.0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                       1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Returns the number at the start of a text: blanks, a sign, digits with at most one decimal mark (`.` or `,`),
/// and an exponent. Ignores whatever follows. Returns 0 if there is no number or if it is outside the range of a
/// double.
double Val(std::string_view text);

/// Whether the whole text, apart from surrounding blanks, is a number that Val reads and a double can hold.
bool IsNumber(std::string_view text);

/// Formats a number in the general form: whole numbers as plain digits, other numbers rounded to 7 significant
/// digits with at most 12 decimals and no trailing zeros. Never writes an exponent or "-0", and never drops a digit
/// before the decimal point. NaN and infinity become "0".
std::string Str(double value);

/// Str with a decimal point on every machine.
std::string mystring(double value);
/// Formats an integer with all its digits.
std::string mystring(std::int64_t value);

/// Formats a number by a pattern. Each "0" is a digit that is always printed; a "#" before the point is a digit
/// that is printed only if needed, but zero is still "0". Each place after the point is one decimal; the number is
/// rounded exactly, with ties to even. A negative number gets a sign whether or not the pattern starts with "-".
/// NaN and infinity are formatted as 0.
std::string myformatstring(double value, std::string_view pattern);

/// Converts to an integer: truncates toward zero and clamps to the range of the type. NaN becomes 0.
std::int64_t truncated(double value);

/// Bytes that are enough for the text of any double as Str writes it.
inline constexpr std::size_t longestPlainNumber = 320;

/// Writes the text of Str at `out`, which must have room for longestPlainNumber bytes. Returns the end of the text.
/// Writes no terminating zero. May write arbitrary bytes beyond the returned end, within that room.
char* WritePlainNumber(char* out, double value);

}  // namespace linealis
