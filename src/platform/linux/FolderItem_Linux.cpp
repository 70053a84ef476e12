#include "platform/FolderItem.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace linealis {

bool FolderItem::IsOwnRegularFile() const
{
    struct stat status {};
    return IsPossible() && ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_uid == ::geteuid();
}

FolderItem FolderItem::MakePrivateFolder(const std::string& prefix) const
{
    std::string folder = (path / (prefix + "XXXXXX")).string();
    return IsPossible() && ::mkdtemp(folder.data()) != nullptr ? FolderItem(folder) : FolderItem();
}

}  // namespace linealis
