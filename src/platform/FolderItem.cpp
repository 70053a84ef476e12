#include "platform/FolderItem.h"

#include "platform/BinaryStream.h"

namespace linealis {

FolderItem::FolderItem(const std::filesystem::path& anyPath)
{
    if (!anyPath.empty()) {
        std::error_code error;
        path = std::filesystem::absolute(anyPath, error);
    }
}

FolderItem FolderItem::StandardOutput()
{
    FolderItem item;
    item.standardOutput = true;
    return item;
}

std::string FolderItem::Name() const
{
    return standardOutput ? "standard output" : path.filename().string();
}

bool FolderItem::Exists() const
{
    std::error_code error;
    return !path.empty() && std::filesystem::exists(path, error);
}

void FolderItem::Delete() const
{
    std::error_code error;
    std::filesystem::remove(path, error);
}

FolderItem FolderItem::Child(const std::string& name) const
{
    return path.empty() ? FolderItem() : FolderItem(path / name);
}

BinaryStream FolderItem::CreateBinaryFile() const
{
    return standardOutput ? BinaryStream::OnStandardOutput() : BinaryStream::Replacing(path);
}

BinaryStream FolderItem::OpenAsBinaryFile() const
{
    return BinaryStream::Reading(path);
}

}  // namespace linealis
