#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace linealis::desktop {

/// The answer to an HTTP/1.0 request, as it comes.
class HttpAnswer {
public:
    void Add(std::string_view bytes);
    std::size_t Size() const { return answer.size(); }

    /// Whether it gives no page, whatever follows.
    bool IsNoPage() const { return bodyStart && !isPage; }

    /// The body of a page that the server gave with status 200, at most `longest` bytes of it; nothing as long as
    /// it has not come. Without a Content-Length it ends where the connection does.
    std::optional<std::string> Body(std::size_t longest, bool isClosed) const;

private:
    void ReadHead(std::string_view head);

    std::string answer;
    std::optional<std::size_t> bodyStart;      ///< behind the head, if that has come
    std::optional<std::size_t> contentLength;  ///< if the head tells it
    bool isPage = false;
};

}  // namespace linealis::desktop
