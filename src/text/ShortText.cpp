#include "text/ShortText.h"

#include "text/MacRoman.h"

namespace linealis {

std::string Shortened(std::string_view text)
{
    constexpr std::size_t mostCharacters = 60, longestCharacter = 4;
    const std::string_view begin = text.substr(0, mostCharacters * longestCharacter);
    std::string shown;
    std::size_t count = 0;
    for (const std::string_view character : Characters(begin)) {
        if (count++ == mostCharacters) {
            break;
        }
        shown += character;
    }
    return shown.size() < text.size() ? shown + "..." : shown;
}

}  // namespace linealis
