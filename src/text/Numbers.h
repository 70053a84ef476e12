#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace linealis {

// The number texts of forms, pages and files. None of them looks at the machine's locale: a number is written
// with a point on every machine, and read with a point or a comma.

/// Whether a byte is a digit of ASCII.
constexpr bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The powers of ten with exponents from 0 to 15, each of them exact.
inline constexpr std::array<double, 16> powersOfTen = {1.0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                       1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// The leading number of a text: blanks, a sign, digits with at most one decimal mark (`.` or `,`), an exponent.
/// Whatever comes behind it is ignored. 0 if there is no number, or one that a double cannot hold.
double Val(std::string_view text);

/// Whether Val reads the text to its end, blanks aside, as a number that a double can hold.
bool IsNumber(std::string_view text);

/// The general number text: whole numbers as plain digits, all others rounded to 7 significant digits with at
/// most 12 decimals and no trailing zeros. Never an exponent, never "-0", and no digit before the point is lost.
/// What is not finite is "0".
std::string Str(double value);

/// Str with a point as the decimal mark on every machine.
std::string mystring(double value);
/// An integer as plain digits, all of them.
std::string mystring(std::int64_t value);

/// The number by a pattern: each "0" is a digit that is always printed, a "#" one that is printed when needed
/// (but zero is "0"), digits behind the point are rounded exactly, a tie to the even digit. Negative numbers
/// have their sign, with or without the leading "-" that a pattern may have. What is not finite is written as 0.
std::string myformatstring(double value, std::string_view pattern);

/// The float as an integer: truncated towards zero, limited to the integer's range, NaN as 0.
std::int64_t truncated(double value);

/// Room for the text of any double as Str writes it.
inline constexpr std::size_t longestPlainNumber = 320;

/// Writes the text of Str behind `out`, which must have room for longestPlainNumber bytes. Returns the end.
char* WritePlainNumber(char* out, double value);

}  // namespace linealis
