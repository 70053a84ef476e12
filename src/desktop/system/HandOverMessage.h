#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace linealis::desktop {

/// Returns the message that a second start of the program sends to the first: each file name followed by a zero
/// byte, which no name contains, and another zero byte at the end. Leaves out empty names, because an empty name
/// marks the end.
std::string HandOverMessage(const std::vector<std::string>& files);

/// Reads such a message in pieces of any size.
class HandOverReader {
public:
    /// Adds the next piece. Ignores everything after the end of the message.
    void Add(std::string_view piece);

    /// Whether the end of the message has been read.
    bool IsWhole() const { return isWhole; }

    /// Whether the message is longer than 8 MiB, more than any command line. The rest is not read.
    bool IsTooLong() const { return bytes > longest; }

    /// The file names read so far.
    const std::vector<std::string>& Files() const { return files; }

private:
    static constexpr std::size_t longest = std::size_t{8} << 20U;

    std::vector<std::string> files;
    std::string last;  ///< the beginning of a name that is not complete yet
    std::size_t bytes = 0;
    bool isWhole = false;
};

}  // namespace linealis::desktop
