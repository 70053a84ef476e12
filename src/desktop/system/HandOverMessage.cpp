#include "desktop/system/HandOverMessage.h"

#include <utility>

namespace linealis::desktop {

std::string HandOverMessage(const std::vector<std::string>& files)
{
    std::string message;
    for (const std::string& file : files) {
        if (!file.empty()) {
            message += file;
            message += '\0';
        }
    }
    return message + '\0';
}

void HandOverReader::Add(std::string_view piece)
{
    while (!piece.empty() && !isWhole && !IsTooLong()) {
        const std::size_t end = piece.find('\0');
        const std::string_view part = piece.substr(0, end);
        last += part;
        bytes += part.size() + 1;
        if (end == std::string_view::npos) {
            return;
        }
        piece.remove_prefix(end + 1);
        if (last.empty()) {
            isWhole = true;
        } else {
            files.push_back(std::exchange(last, {}));
        }
    }
}

}  // namespace linealis::desktop
