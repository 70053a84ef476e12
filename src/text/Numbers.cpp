#include "text/Numbers.h"

#include "text/DoubleText.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>

namespace linealis {

namespace {

constexpr int maximumDecimals = 12;
static_assert(maximumDecimals < powersOfTen.size());

/// Every whole double below this limit converts to an integer and back without loss.
constexpr double largestExactWhole = 1e15;

constexpr std::string_view blanks = " \t";

/// Returns the number of decimals that gives 7 significant digits. `magnitude` is positive and not whole.
int DecimalsForSevenDigits(double magnitude)
{
    int decimals = 6;
    if (magnitude >= 10.0) {
        for (double bound = 10.0; magnitude >= bound && decimals > 0; bound *= 10.0) {
            --decimals;
        }
    } else {
        constexpr std::array<double, 6> bounds = {1.0, 0.1, 0.01, 0.001, 0.0001, 0.00001};
        for (const double bound : bounds) {
            if (magnitude >= bound) {
                break;
            }
            ++decimals;
        }
    }
    return decimals;
}

constexpr int digitsOfAWord = 8;
constexpr std::uint64_t endOfAWord = 100'000'000;

/// Returns the eight decimal digits of a number below 10^8, one per byte, with the first digit in the lowest byte.
std::uint64_t EightDigits(std::uint64_t number)
{
    // Split the number into halves, then both halves, then all four quarters, several at a time in one word. Within
    // these ranges, the multiplications and shifts divide by 100 and 10 exactly.
    const std::uint64_t halves = (number / 10000) | ((number % 10000) << 32U);
    const std::uint64_t hundreds = ((halves * 5243) >> 19U) & 0x0000007F0000007FU;
    const std::uint64_t quarters = hundreds | ((halves - hundreds * 100) << 16U);
    const std::uint64_t tens = ((quarters * 103) >> 10U) & 0x000F000F000F000FU;
    return tens | ((quarters - tens * 10) << 8U);
}

/// WriteScaled for little-endian machines, numbers below 10^8, and fewer than 8 decimals. Nearly every coordinate
/// takes this path.
char* WriteScaledWord(char* out, std::uint64_t scaled, int decimals)
{
    constexpr int bitsOfADigit = 8;
    constexpr std::uint64_t zeros = 0x3030303030303030U;
    const std::uint64_t digits = EightDigits(scaled);
    const std::uint64_t text = digits | zeros;
    const auto write = [&](int from, int to) {
        const std::uint64_t part = text >> static_cast<unsigned>(from * bitsOfADigit);
        std::memcpy(out, &part, sizeof part);  // writes all eight bytes; later text overwrites the excess
        out += to - from;
    };
    const int point = digitsOfAWord - decimals;
    const int first = std::min(std::countr_zero(digits) / bitsOfADigit, point - 1);
    const int last = digitsOfAWord - std::countl_zero(digits) / bitsOfADigit;
    write(first, point);
    if (last > point) {
        *out++ = '.';
        write(point, last);
    }
    return out;
}

/// Writes `scaled` / 10^decimals without trailing zeros. Returns the end of the text.
char* WriteScaled(char* out, std::uint64_t scaled, int decimals)
{
    if (std::endian::native == std::endian::little && scaled < endOfAWord && decimals < digitsOfAWord) {
        return WriteScaledWord(out, scaled, decimals);
    }
    while (decimals > 0 && scaled % 10 == 0) {
        scaled /= 10;
        --decimals;
    }
    std::array<char, 24> digits{};
    char* const end = digits.data() + digits.size();
    char* first = end;
    for (int written = 0; scaled != 0 || written <= decimals; ++written) {
        if (written == decimals && decimals > 0) {
            *--first = '.';
        }
        *--first = static_cast<char>('0' + scaled % 10);
        scaled /= 10;
    }
    return std::copy(first, end, out);
}

/// Writes a positive number rounded exactly to the given number of decimals, without trailing zeros. Returns the
/// end of the text.
char* WriteRoundedExactly(char* out, double magnitude, int decimals)
{
    char* end = WriteFixed(out, magnitude, decimals);
    if (decimals > 0) {
        while (end[-1] == '0') {
            --end;
        }
        if (end[-1] == '.') {
            --end;
        }
    }
    return end;
}

char* WriteFraction(char* out, double magnitude)
{
    const int decimals = DecimalsForSevenDigits(magnitude);
    const double product = magnitude * powersOfTen[static_cast<std::size_t>(decimals)];
    if (product >= largestExactWhole) {
        return WriteRoundedExactly(out, magnitude, decimals);
    }
    const auto whole = static_cast<std::int64_t>(product);
    const double rest = product - static_cast<double>(whole);
    // The error of the product is less than a billionth. The slow exact conversion is needed only where that error
    // could change the rounding.
    constexpr double nearTie = 1e-6;
    if (std::fabs(rest - 0.5) < nearTie) {
        return WriteRoundedExactly(out, magnitude, decimals);
    }
    return WriteScaled(out, static_cast<std::uint64_t>(whole + (rest > 0.5 ? 1 : 0)), decimals);
}

struct Pattern {
    std::size_t integerDigits;  ///< minimum number of digits before the point
    int decimals;
};

Pattern ReadPattern(std::string_view pattern)
{
    const std::size_t point = std::min(pattern.find('.'), pattern.size());
    const auto zeros = std::count(pattern.begin(), pattern.begin() + static_cast<std::ptrdiff_t>(point), '0');
    const std::size_t decimals = point < pattern.size() ? pattern.size() - point - 1 : 0;
    return {static_cast<std::size_t>(std::max<std::ptrdiff_t>(zeros, 1)), static_cast<int>(decimals)};
}

/// Reads the digits after the "e" of a number as an exponent. Limits it to a value far outside the range of a
/// double, so that it cannot overflow.
std::int64_t ReadExponent(std::string_view text)
{
    constexpr std::int64_t limit = 1'000'000'000'000;
    std::int64_t exponent = 0;
    for (const char c : text) {
        if (IsDigit(c)) {
            exponent = std::min(exponent * 10 + (c - '0'), limit);
        }
    }
    return text.starts_with('-') ? -exponent : exponent;
}

/// Returns the digits times a power of ten, correctly rounded, or nothing if a double cannot hold the result.
/// std::from_chars would do, but not every standard library provides it for doubles. std::strtod depends on the
/// locale only through the decimal mark, and this text has none.
std::optional<double> FromDecimal(const std::string& digits, std::int64_t exponent)
{
    const double value = std::strtod((digits + 'e' + std::to_string(exponent)).c_str(), nullptr);
    const bool isZero = digits.find_first_not_of('0') == std::string::npos;
    return std::isfinite(value) && (value != 0.0 || isZero) ? std::optional(value) : std::nullopt;
}

/// The number that Val reads and where it ends. `end` is 0 if there is no number.
struct ReadNumber {
    std::size_t end = 0;
    double value = 0.0;
};

ReadNumber Read(std::string_view text)
{
    const auto skipDigits = [&](std::size_t i) {
        while (i < text.size() && IsDigit(text[i])) {
            ++i;
        }
        return i;
    };
    const auto isOneOf = [&](std::size_t i, std::string_view characters) {
        return i < text.size() && characters.find(text[i]) != std::string_view::npos;
    };
    const std::size_t sign = std::min(text.find_first_not_of(blanks), text.size());
    const std::size_t start = sign + (isOneOf(sign, "+-") ? 1 : 0);
    std::size_t end = skipDigits(start);
    std::string digits(text.substr(start, end - start));
    std::int64_t exponent = 0;
    if (isOneOf(end, ".,")) {
        const std::size_t decimals = end + 1;
        end = skipDigits(decimals);
        digits += text.substr(decimals, end - decimals);
        exponent -= static_cast<std::int64_t>(end - decimals);
    }
    if (digits.empty()) {
        return {};
    }
    if (isOneOf(end, "eE")) {
        const std::size_t exponentDigits = end + (isOneOf(end + 1, "+-") ? 2 : 1);
        if (const std::size_t exponentEnd = skipDigits(exponentDigits); exponentEnd > exponentDigits) {
            exponent += ReadExponent(text.substr(end + 1, exponentEnd - end - 1));
            end = exponentEnd;
        }
    }
    const std::optional<double> value = FromDecimal(digits, exponent);
    if (!value) {
        return {};
    }
    return {end, text[sign] == '-' ? -*value : *value};
}

}  // namespace

double Val(std::string_view text)
{
    return Read(text).value;
}

bool IsNumber(std::string_view text)
{
    const std::size_t end = Read(text).end;
    return end > 0 && text.find_first_not_of(blanks, end) == std::string_view::npos;
}

char* WritePlainNumber(char* out, double value)
{
    if (!std::isfinite(value)) {
        *out++ = '0';
        return out;
    }
    char* const start = out;
    if (value < 0.0) {
        *out++ = '-';
    }
    const double magnitude = std::fabs(value);
    char* end = out;
    if (magnitude >= largestExactWhole) {
        end = WriteRoundedExactly(out, magnitude, 0);
    } else if (const auto whole = static_cast<std::int64_t>(magnitude); static_cast<double>(whole) == magnitude) {
        end = WriteScaled(out, static_cast<std::uint64_t>(whole), 0);
    } else {
        end = WriteFraction(out, magnitude);
    }
    if (end == out + 1 && *out == '0') {  // no sign on a number that rounds to zero
        *start = '0';
        end = start + 1;
    }
    return end;
}

std::string Str(double value)
{
    std::array<char, longestPlainNumber> text{};
    return {text.data(), WritePlainNumber(text.data(), value)};
}

std::string mystring(double value)
{
    std::string text = Str(value);
    std::replace(text.begin(), text.end(), ',', '.');
    return text;
}

std::string mystring(std::int64_t value)
{
    return std::to_string(value);
}

std::string myformatstring(double value, std::string_view pattern)
{
    const Pattern form = ReadPattern(pattern);
    const double magnitude = std::isfinite(value) ? std::fabs(value) : 0.0;
    std::array<char, longestPlainNumber + maximumDecimals> digits{};
    const char* const end = WriteFixed(digits.data(), magnitude, form.decimals);
    std::string text(static_cast<const char*>(digits.data()), end);
    const std::size_t integerDigits = std::min(text.find('.'), text.size());
    if (integerDigits < form.integerDigits) {
        text.insert(0, form.integerDigits - integerDigits, '0');
    }
    if (std::isfinite(value) && value < 0.0) {
        text.insert(0, 1, '-');
    }
    return text;
}

std::int64_t truncated(double value)
{
    constexpr double limit = 9223372036854775808.0;  // 2^63
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= limit) {
        return std::numeric_limits<std::int64_t>::max();
    }
    if (value <= -limit) {
        return std::numeric_limits<std::int64_t>::min();
    }
    return static_cast<std::int64_t>(value);
}

}  // namespace linealis
