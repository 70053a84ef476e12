#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace linealis::desktop {

/// Reads the answer to an HTTP/1.0 request piece by piece.
class HttpAnswer {
public:
    /// Adds the next bytes from the server.
    void Add(std::string_view bytes);
    /// The number of bytes received so far, head included.
    std::size_t Size() const { return answer.size(); }

    /// Whether the head shows that the answer contains no usable page.
    bool IsNoPage() const { return bodyStart && !isPage; }

    /// Returns the body of an answer with status 200, cut to `longest` bytes. Returns nothing until that much, or
    /// the whole body, has arrived. Without a Content-Length, the body is complete when the connection is closed.
    std::optional<std::string> Body(std::size_t longest, bool isClosed) const;

private:
    void ReadHead(std::string_view head);

    std::string answer;
    std::optional<std::size_t> bodyStart;      ///< where the body starts; no value until the head is complete
    std::optional<std::size_t> contentLength;  ///< from the head, if given and valid
    bool isPage = false;
};

}  // namespace linealis::desktop
