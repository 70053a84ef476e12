#include "desktop/system/RecentFiles.h"

#include "kinds/PaperKinds.h"
#include "platform/BinaryStream.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

namespace linealis {

namespace {

constexpr std::string_view recentHeading = "# Settings files used last";

/// Escapes line feeds and backslashes, so that a path takes one line of the file.
std::string InOneLine(std::string_view path)
{
    std::string line;
    for (const char c : path) {
        if (c == '\\') {
            line += "\\\\";
        } else if (c == '\n') {
            line += "\\n";
        } else {
            line += c;
        }
    }
    return line;
}

/// Reverses InOneLine.
std::string PathOf(std::string_view line)
{
    std::string path;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool isEscaped = line[i] == '\\' && i + 1 < line.size();
        i += isEscaped ? 1 : 0;
        path += isEscaped && line[i] == 'n' ? '\n' : line[i];
    }
    return path;
}

bool NamesSettings(const std::filesystem::path& path)
{
    return path.is_absolute() && FindPaperKindOf(path) != nullptr;
}

std::string_view TakeLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

}  // namespace

RecentFiles::RecentFiles(const FolderItem& preferencesFolder) : list(preferencesFolder.Child("LinealisRecentFiles"))
{}

std::vector<FolderItem> RecentFiles::List() const
{
    std::error_code unread;
    std::vector<FolderItem> files = Read(unread);
    std::erase_if(files, [](const FolderItem& file) {
        std::error_code cannotTell;
        return !std::filesystem::is_regular_file(file.Path(), cannotTell);
    });
    return files;
}

std::vector<FolderItem> RecentFiles::Read(std::error_code& error) const
{
    std::vector<FolderItem> files;
    if (!list.Exists()) {
        return files;
    }
    BinaryStream stream = list.OpenAsBinaryFile();
    const std::string text = stream.Read(BinaryStream::longestField);
    error = stream.Error();
    std::string_view left = text;
    if (TakeLine(left) != recentHeading) {
        return files;
    }
    while (!left.empty() && files.size() < most) {
        const std::filesystem::path path = PathOf(TakeLine(left));
        if (NamesSettings(path) && std::find(files.begin(), files.end(), FolderItem(path)) == files.end()) {
            files.emplace_back(path);
        }
    }
    return files;
}

std::error_code RecentFiles::Add(const FolderItem& file) const
{
    if (file.Path().empty()) {
        return {};
    }
    const FolderItem added(file.Path().lexically_normal());
    std::error_code error;
    std::vector<FolderItem> files = Read(error);
    if (error) {
        return error;
    }
    std::erase(files, added);
    files.insert(files.begin(), added);
    files.resize(std::min(files.size(), most));
    return Write(files);
}

std::error_code RecentFiles::Clear() const
{
    return list.Exists() ? Write({}) : std::error_code();
}

std::error_code RecentFiles::Write(const std::vector<FolderItem>& files) const
{
    if (list.IsEmpty()) {
        return {};
    }
    std::string text = std::string(recentHeading) + "\n";
    for (const FolderItem& file : files) {
        text += InOneLine(file.Path().string()) + "\n";
    }
    BinaryStream stream = list.CreateBinaryFile();
    stream.Write(text);
    return stream.Close();
}

}  // namespace linealis
