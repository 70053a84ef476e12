#include "pipeline/document/MarkerFile.h"

#include "platform/BinaryStream.h"

#include <algorithm>
#include <utility>

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
Message FaultOf(std::string_view text)
{
    if (text.size() > longestText) {
        return Message("larger than 64 MiB");
    }
    if (text.find('\0') != std::string_view::npos) {
        return Message("not a text file");
    }
    return HasLongLine(text) ? Message("a line is longer than 64 KiB") : Message();
}

/// Removes the first line from the text, together with its line end, and returns it without.
std::string_view CutLine(std::string_view& text)
{
    const std::size_t length = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, length);
    text.remove_prefix(length);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
    return line;
}

}  // namespace

MarkerFile::MarkerFile(const FolderItem& item) : text(std::make_shared<const std::string>())
{
    if (item.IsEmpty()) {
        return;
    }
    BinaryStream stream = item.OpenAsBinaryFile();
    std::string read = stream.ReadRest(longestText);
    Take(item.Path().string(), std::move(read), stream.Error());
}

MarkerFile::MarkerFile(const std::string& name, std::string bytes) : text(std::make_shared<const std::string>())
{
    Take(name, std::move(bytes), {});
}

void MarkerFile::Take(const std::string& name, std::string bytes, const std::error_code& error)
{
    const Message fault = error ? Message::Verbatim(error.message()) : FaultOf(bytes);
    if (!fault.IsEmpty()) {
        whyNot = Message("%1: %2", name, fault);
        return;
    }
    text = std::make_shared<const std::string>(std::move(bytes));
}

std::function<bool(std::string& line)> MarkerFile::Lines() const
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    const std::size_t start = text->starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    return [all = text, rest = std::string_view(*text).substr(start)](std::string& line) mutable {
        if (rest.empty()) {
            return false;
        }
        line = CutLine(rest);
        return true;
    };
}

MarkerFields::MarkerFields(std::string_view line)
{
    for (std::string_view* const field : {&x, &y, &text}) {
        const std::size_t length = std::min(line.find(' '), line.size());
        *field = line.substr(0, length);
        line.remove_prefix(std::min(length + 1, line.size()));
    }
}

}  // namespace linealis
