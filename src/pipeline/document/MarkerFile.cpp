#include "pipeline/document/MarkerFile.h"

#include "platform/BinaryStream.h"

#include <algorithm>

namespace linealis {

namespace {

constexpr std::size_t longestText = std::size_t{64} << 20U;
constexpr std::size_t longestLine = std::size_t{64} << 10U;

bool HasLongLine(std::string_view text)
{
    std::size_t start = 0;
    while (text.size() - start > longestLine) {
        const std::size_t end = text.find_first_of("\r\n", start);
        if (std::min(end, text.size()) - start > longestLine) {
            return true;
        }
        start = end + 1;
    }
    return false;
}

/// Returns why the text cannot be a marker file, or an empty text if it can.
std::string FaultOf(std::string_view text)
{
    if (text.size() > longestText) {
        return "larger than 64 MiB";
    }
    if (text.find('\0') != std::string_view::npos) {
        return "not a text file";
    }
    return HasLongLine(text) ? "a line is longer than 64 KiB" : "";
}

}  // namespace

MarkerFile::MarkerFile(const FolderItem& item)
{
    if (item.IsEmpty()) {
        return;
    }
    BinaryStream stream = item.OpenAsBinaryFile();
    text = stream.ReadRest(longestText);
    const std::string fault = stream.Error() ? stream.Error().message() : FaultOf(text);
    if (!fault.empty()) {
        whyNot = item.Path().string() + ": " + fault;
        return;
    }
    rest = text;
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (rest.starts_with(byteOrderMark)) {
        rest.remove_prefix(byteOrderMark.size());
    }
}

bool MarkerFile::NextLine(std::string& line)
{
    if (rest.empty()) {
        return false;
    }
    line = CutLine();
    return true;
}

std::string_view MarkerFile::CutLine()
{
    const std::size_t length = std::min(rest.find_first_of("\r\n"), rest.size());
    const std::string_view line = rest.substr(0, length);
    rest.remove_prefix(length);
    rest.remove_prefix(rest.starts_with("\r\n") ? 2 : std::min<std::size_t>(rest.size(), 1));
    return line;
}

}  // namespace linealis
