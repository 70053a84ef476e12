#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace linealis::desktop {

/// What a second start of the program sends to the first: each file with a zero byte behind it, which no name has,
/// and one more at the end. An empty name cannot be sent.
std::string HandOverMessage(const std::vector<std::string>& files);

/// Takes such a message as it comes, in pieces of any size.
class HandOverReader {
public:
    /// What follows the end of the message is left out of account.
    void Add(std::string_view piece);

    bool IsWhole() const { return isWhole; }

    /// It has more than 8 MiB, which no command line has, and is not read any further.
    bool IsTooLong() const { return bytes > longest; }

    /// The files that have come so far.
    const std::vector<std::string>& Files() const { return files; }

private:
    static constexpr std::size_t longest = std::size_t{8} << 20U;

    std::vector<std::string> files;
    std::string last;  ///< the file that is on its way
    std::size_t bytes = 0;
    bool isWhole = false;
};

}  // namespace linealis::desktop
