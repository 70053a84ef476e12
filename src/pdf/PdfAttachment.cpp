#include "pdf/PdfAttachment.h"

#include <charconv>
#include <cstddef>

namespace linealis {

namespace {

/// Returns what follows the first `mark`; empty if there is none.
std::string_view Behind(std::string_view mark, std::string_view text)
{
    const std::size_t begin = text.find(mark);
    return begin == std::string_view::npos ? std::string_view() : text.substr(begin + mark.size());
}

}  // namespace

std::string PdfAttachmentEntries(std::string_view mimeType)
{
    const std::size_t slash = mimeType.find('/');
    return "/Type/EmbeddedFile/Subtype/" + std::string(mimeType.substr(0, slash)) + "#2F" +
           std::string(mimeType.substr(slash + 1));
}

std::string_view PdfAttachmentIn(std::string_view pdf, std::string_view mimeType)
{
    const std::string_view dictionary = Behind(PdfAttachmentEntries(mimeType), pdf);
    const std::string_view length = Behind("/Length ", dictionary), stream = Behind("stream\r\n", length);
    std::size_t size = 0;
    const auto read = std::from_chars(length.data(), length.data() + length.size(), size);
    const bool isWhole = !stream.empty() && read.ec == std::errc() && size <= stream.size();
    return isWhole ? stream.substr(0, size) : std::string_view();
}

}  // namespace linealis
