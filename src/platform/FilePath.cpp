#include "platform/FilePath.h"

#include <string>
#include <system_error>

namespace linealis {

std::filesystem::path PathOf(std::string_view utf8)
{
    try {
        return {std::u8string(utf8.begin(), utf8.end())};
    } catch (const std::system_error&) {  // not UTF-8, on Windows
        return {};
    }
}

}  // namespace linealis
