#include "platform/FolderItem.h"

#include <random>

namespace linealis {

/// Without owners, every regular file is the user's own.
bool FolderItem::IsOwnRegularFile() const
{
    std::error_code error;
    return IsPossible() && std::filesystem::is_regular_file(std::filesystem::symlink_status(path, error));
}

FolderItem FolderItem::MakePrivateFolder(const std::string& prefix) const
{
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz";
    constexpr int randomLetters = 6, mostAttempts = 100;
    std::random_device random;
    for (int attempt = 0; IsPossible() && attempt < mostAttempts; ++attempt) {
        std::string name = prefix;
        for (int i = 0; i < randomLetters; ++i) {
            name += letters[random() % letters.size()];
        }
        std::error_code error;
        if (std::filesystem::create_directory(path / name, error)) {
            std::filesystem::permissions(path / name, std::filesystem::perms::owner_all, error);
            return FolderItem(path / name);
        }
    }
    return {};
}

}  // namespace linealis
