#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace linealis {

/// What NextCharacter returns for a byte that begins no valid UTF-8 sequence.
constexpr std::uint32_t noCharacter = 0xFFFFFFFF;

/// Decodes the UTF-8 character at `position` and moves `position` past it. An invalid byte gives noCharacter, and
/// `position` moves by one. `position` must be below the length of the text.
std::uint32_t NextCharacter(std::string_view text, std::size_t& position);

}  // namespace linealis
