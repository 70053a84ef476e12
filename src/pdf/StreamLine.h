#pragma once

#include "pdf/Numbers.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace linealis {

/// A line of the content stream in the making: up to six plain numbers and a little text, without allocation.
class StreamLine {
public:
    StreamLine& Number(double value)
    {
        end = WritePlainNumber(end, value);
        return *this;
    }

    /// A number and the blank behind it.
    StreamLine& Operand(double value)
    {
        Number(value);
        *end++ = ' ';
        return *this;
    }

    /// At most as much text in all as there is room beside the numbers, 64 bytes.
    StreamLine& Text(std::string_view text)
    {
        end = std::copy(text.begin(), text.end(), end);
        return *this;
    }

    /// The text so far and the CR that ends a line.
    std::string_view Ended()
    {
        *end++ = '\r';
        return {bytes.data(), static_cast<std::size_t>(end - bytes.data())};
    }

private:
    static constexpr std::size_t numbers = 6;
    static constexpr std::size_t otherText = 64;
    std::array<char, numbers*(longestPlainNumber + 1) + otherText> bytes;  // NOLINT: filled from the front
    char* end = bytes.data();
};

}  // namespace linealis
