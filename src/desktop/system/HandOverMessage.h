#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace linealis::desktop {

/// What a second start of the program asks of the first.
struct StartRequest {
    std::vector<std::string> files;  ///< to open
    std::string activationToken;     ///< permits the first to bring a window to the front on Wayland; may be empty

    bool operator==(const StartRequest&) const = default;
};

/// Returns the message that a second start of the program sends to the first: the token after a prefix that no
/// file name has, and each file name, all followed by a zero byte, which they do not contain, and another zero
/// byte at the end. Leaves out empty names, because an empty name marks the end.
std::string HandOverMessage(const StartRequest& request);

/// Reads such a message in pieces of any size.
class HandOverReader {
public:
    /// Adds the next piece. Ignores everything after the end of the message.
    void Add(std::string_view piece);

    /// Whether the end of the message has been read.
    bool IsWhole() const { return isWhole; }

    /// Whether the message is longer than 8 MiB, more than any command line. The rest is not read.
    bool IsTooLong() const { return bytes > longest; }

    /// What has been read so far.
    const StartRequest& Request() const { return request; }

private:
    static constexpr std::size_t longest = std::size_t{8} << 20U;

    void Take(std::string entry);

    StartRequest request;
    std::string last;  ///< the beginning of a name that is not complete yet
    std::size_t bytes = 0;
    bool isWhole = false;
};

}  // namespace linealis::desktop
