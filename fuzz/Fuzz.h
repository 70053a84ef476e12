#pragma once

#include "kinds/PaperKinds.h"
#include "platform/ScreenlessPlatform.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace linealis::fuzz {

/// What must hold, whatever was given. A fuzzer stops at the input that breaks it.
inline void Require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// What a fuzzer makes up, taken piece by piece from its beginning. Once all is taken, every number is 0 and every
/// text empty.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : rest(reinterpret_cast<const char*>(data), size) {}

    bool IsEmpty() const { return rest.empty(); }

    std::uint8_t Byte()
    {
        if (rest.empty()) {
            return 0;
        }
        const auto byte = static_cast<std::uint8_t>(rest.front());
        rest.remove_prefix(1);
        return byte;
    }

    /// Up to the next line end.
    std::string_view Line()
    {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        return line;
    }

    std::string_view All() const { return rest; }

    const PaperKind& Kind() { return PaperKinds()[Byte() % PaperKinds().size()]; }

private:
    std::string_view rest;
};

}  // namespace linealis::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
