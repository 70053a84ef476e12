#pragma once

#include "platform/FolderItem.h"

#include <cstddef>
#include <system_error>
#include <vector>

namespace linealis {

/// Stores the settings files that were opened or saved last, in a small text file in the preferences folder: a
/// heading, then one path per line, newest first. Without a preferences folder, nothing is stored and nothing
/// fails.
class RecentFiles {
public:
    static constexpr std::size_t most = 10;

    explicit RecentFiles(const FolderItem& preferencesFolder);

    /// Returns at most `most` different files, newest first. Leaves out a file that does not exist, but keeps it
    /// in the list. Ignores lines that are not the absolute path of a settings file. A list that cannot be read
    /// counts as empty.
    std::vector<FolderItem> List() const;

    /// Puts the file at the top of the list. Does nothing if the file has no path. Leaves a list that cannot be
    /// read unchanged and returns the reason.
    std::error_code Add(const FolderItem& file) const;

    /// Empties the list. Returns an error if it cannot be written.
    std::error_code Clear() const;

private:
    /// Returns the files of the list, whether they exist or not.
    std::vector<FolderItem> Read(std::error_code& error) const;
    std::error_code Write(const std::vector<FolderItem>& files) const;

    FolderItem list;
};

}  // namespace linealis
