#include "desktop/system/HttpAnswer.h"

#include "text/LetterCase.h"

#include <algorithm>
#include <charconv>

namespace linealis::desktop {

namespace {

constexpr std::string_view lineEnd = "\r\n", endOfHead = "\r\n\r\n", blanks = " \t";

std::string_view WithoutBlanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// Whether the status line is that of HTTP/1.x with status 200, so that the page follows.
bool IsSuccess(std::string_view statusLine)
{
    const std::size_t afterVersion = std::min(statusLine.find(' '), statusLine.size());
    const std::string_view rest = WithoutBlanks(statusLine.substr(afterVersion));
    return statusLine.starts_with("HTTP/1.") && rest.substr(0, rest.find(' ')) == "200";
}

/// Returns the number if the text consists of digits only and the number is not too large.
std::optional<std::size_t> WholeNumber(std::string_view digits)
{
    std::size_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return result.ec == std::errc() && result.ptr == digits.data() + digits.size() ? std::optional(number)
                                                                                   : std::nullopt;
}

}  // namespace

void HttpAnswer::Add(std::string_view bytes)
{
    // The end of the head may be split between two pieces, so search the last bytes of the previous piece again.
    const std::size_t searched = answer.size() - std::min(answer.size(), endOfHead.size());
    answer += bytes;
    if (!bodyStart) {
        if (const std::size_t end = answer.find(endOfHead, searched); end != std::string::npos) {
            bodyStart = end + endOfHead.size();
            ReadHead(std::string_view(answer).substr(0, end));
        }
    }
}

void HttpAnswer::ReadHead(std::string_view head)
{
    isPage = IsSuccess(head.substr(0, head.find(lineEnd)));
    for (std::size_t end = head.find(lineEnd); end != std::string_view::npos; end = head.find(lineEnd)) {
        head.remove_prefix(end + lineEnd.size());
        const std::string_view line = head.substr(0, head.find(lineEnd));
        const std::size_t colon = std::min(line.find(':'), line.size());
        const std::string_view name = line.substr(0, colon), value = line.substr(std::min(colon + 1, line.size()));
        if (IsSameText(name, "Content-Length")) {
            contentLength = WholeNumber(WithoutBlanks(value));
        } else if (IsSameText(name, "Transfer-Encoding")) {
            isPage = false;  // a chunked answer is not valid for an HTTP/1.0 request
        }
    }
}

std::optional<std::string> HttpAnswer::Body(std::size_t longest, bool isClosed) const
{
    if (!isPage) {
        return std::nullopt;
    }
    const std::size_t come = answer.size() - *bodyStart;
    const bool isWhole = contentLength ? come >= *contentLength : isClosed;
    if (!isWhole && come < longest) {
        return std::nullopt;
    }
    return answer.substr(*bodyStart, std::min(longest, contentLength.value_or(longest)));
}

}  // namespace linealis::desktop
