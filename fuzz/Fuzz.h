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

/// Aborts unless the condition holds. The fuzzer reports the input that caused it.
inline void Require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// Reads the input of a fuzzer piece by piece. Once the input is used up, every number is 0 and every text is
/// empty.
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

    /// Returns the text up to the next line end and skips that.
    std::string_view Line()
    {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        return line;
    }

    /// Returns the unread input without consuming it.
    std::string_view All() const { return rest; }

    /// Selects a kind of paper by the next byte.
    const PaperKind& Kind() { return PaperKinds()[Byte() % PaperKinds().size()]; }

private:
    std::string_view rest;
};

}  // namespace linealis::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
