#pragma once

#include "platform/FolderItem.h"

#include <cstddef>
#include <system_error>
#include <vector>

namespace linealis {

/// The settings files that were opened or saved last. They stand in a small text file in the preferences folder: a
/// heading, then a path a line, the newest first. Without that folder nothing is kept, and nothing fails.
class RecentFiles {
public:
    static constexpr std::size_t most = 10;

    explicit RecentFiles(const FolderItem& preferencesFolder);

    /// At most `most` files, the newest first, none twice. A file that is gone is left out until it is back. A list
    /// that cannot be read is empty, and a line that names no settings file is passed over.
    std::vector<FolderItem> List() const;

    /// Puts the file first. A file without a path is not kept. A list that cannot be read stays as it is, and the
    /// reason is returned.
    std::error_code Add(const FolderItem& file) const;

    std::error_code Clear() const;

private:
    std::vector<FolderItem> Read(std::error_code& error) const;
    std::error_code Write(const std::vector<FolderItem>& files) const;

    FolderItem list;
};

}  // namespace linealis
