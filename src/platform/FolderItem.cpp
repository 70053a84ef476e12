#include "platform/FolderItem.h"

#include "platform/BinaryStream.h"
#include "platform/FilePath.h"

namespace linealis {

FolderItem::FolderItem(const std::filesystem::path& anyPath)
{
    if (!anyPath.empty()) {
        std::error_code error;
        path = std::filesystem::absolute(anyPath, error);
        if (error) {  // the working directory no longer exists
            path = anyPath;
        }
    }
}

FolderItem FolderItem::StandardOutput()
{
    FolderItem item;
    item.standardOutput = true;
    return item;
}

FolderItem FolderItem::WithoutLinks() const
{
    FolderItem item = *this;
    item.linksRefused = true;
    return item;
}

FolderItem FolderItem::WaitingForReader() const
{
    FolderItem item = *this;
    item.readerAwaited = true;
    return item;
}

std::string FolderItem::Name() const
{
    return standardOutput ? "standard output" : path.filename().string();
}

/// Whether the path can name a file. System calls take a zero byte as the end of a path and would access a
/// different file.
bool FolderItem::IsPossible() const
{
    return !path.empty() && path.native().find('\0') == std::string::npos;
}

bool FolderItem::Exists() const
{
    std::error_code error;
    return IsPossible() && std::filesystem::exists(path, error);
}

void FolderItem::Delete() const
{
    std::error_code error;
    if (IsPossible()) {
        std::filesystem::remove(path, error);
    }
}

FolderItem FolderItem::Child(const std::string& name) const
{
    return path.empty() ? FolderItem() : FolderItem(path / PathOf(name));
}

BinaryStream FolderItem::CreateBinaryFile() const
{
    const Links links = linksRefused ? Links::Refuse : readerAwaited ? Links::FollowAndWait : Links::Follow;
    return standardOutput ? BinaryStream::OnStandardOutput() : BinaryStream::Replacing(path, links);
}

BinaryStream FolderItem::CreateNewBinaryFile() const
{
    return BinaryStream::New(path);
}

BinaryStream FolderItem::OpenAsBinaryFile() const
{
    return BinaryStream::Reading(path);
}

}  // namespace linealis
