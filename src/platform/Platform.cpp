#include "platform/Platform.h"

#include <array>
#include <cstdio>

namespace linealis {

std::string Platform::ShortDate() const
{
    const LocalTime now = Now();
    constexpr std::size_t longest = 40;
    std::array<char, longest> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", now.year, now.month, now.day);
    return text.data();
}

}  // namespace linealis
