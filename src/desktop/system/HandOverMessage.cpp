#include "desktop/system/HandOverMessage.h"

#include <utility>

namespace linealis::desktop {

namespace {

constexpr std::string_view tokenPrefix =
    "activation-token:";  // file names are absolute paths or begin with "paper:"

}  // namespace

std::string HandOverMessage(const StartRequest& request)
{
    std::string message;
    if (!request.activationToken.empty()) {
        message.append(tokenPrefix).append(request.activationToken) += '\0';
    }
    for (const std::string& file : request.files) {
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
            Take(std::exchange(last, {}));
        }
    }
}

void HandOverReader::Take(std::string entry)
{
    if (entry.starts_with(tokenPrefix)) {
        request.activationToken = entry.substr(tokenPrefix.size());
    } else {
        request.files.push_back(std::move(entry));
    }
}

}  // namespace linealis::desktop
