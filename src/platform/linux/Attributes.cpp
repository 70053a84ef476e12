#include "platform/linux/Attributes.h"

#include "platform/linux/Descriptor.h"

#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::posix {

namespace {

constexpr const char* const accessList = "system.posix_acl_access";

/// Privileges and signatures that apply only to the content of the old file.
constexpr std::array<std::string_view, 3> ofOldBytes = {"security.capability", "security.ima", "security.evm"};

std::vector<std::string> AttributeNames(int file)
{
    const ssize_t size = ::flistxattr(file, nullptr, 0);
    std::string list(static_cast<std::size_t>(std::max<ssize_t>(size, 0)), '\0');
    const ssize_t got = ::flistxattr(file, list.data(), list.size());
    list.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    std::vector<std::string> names;
    for (std::size_t start = 0; start < list.size(); start += names.back().size() + 1) {
        names.emplace_back(list.c_str() + start);
    }
    return names;
}

bool CopyAttribute(int oldFile, int newFile, const char* name)
{
    const ssize_t size = ::fgetxattr(oldFile, name, nullptr, 0);
    std::string value(static_cast<std::size_t>(std::max<ssize_t>(size, 0)), '\0');
    const ssize_t got = ::fgetxattr(oldFile, name, value.data(), value.size());
    return got >= 0 && ::fsetxattr(newFile, name, value.data(), static_cast<std::size_t>(got), 0) == 0;
}

/// Copies the extended attributes. Returns false if the old file has an access control list that could not be
/// copied.
bool CopyAttributes(int oldFile, int newFile)
{
    bool sameAccess = true;
    ::fremovexattr(newFile, accessList);  // inherited from the folder
    for (const std::string& name : AttributeNames(oldFile)) {
        const bool wanted = std::find(ofOldBytes.begin(), ofOldBytes.end(), name) == ofOldBytes.end();
        if (wanted && !CopyAttribute(oldFile, newFile, name.c_str()) && name == accessList) {
            sameAccess = false;
        }
    }
    return sameAccess;
}

bool CopyOwner(const struct stat& old, int newFile)
{
    return ::fchown(newFile, old.st_uid, old.st_gid) == 0 ||
           ::fchown(newFile, static_cast<uid_t>(-1), old.st_gid) == 0;
}

}  // namespace

std::error_code TakeOverAttributes(int oldFile, int newFile)
{
    struct stat old {};
    if (::fstat(oldFile, &old) != 0) {
        return LastError();
    }
    const bool sameGroup = CopyOwner(old, newFile);
    const bool sameAccess = CopyAttributes(oldFile, newFile);
    mode_t permissions = old.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    if (!sameGroup || !sameAccess) {  // the group may be different people, so it gets at most the rights of others
        const mode_t others = permissions & S_IRWXO;
        permissions &= static_cast<mode_t>(~S_IRWXG) | others << 3U;
    }
    return ::fchmod(newFile, permissions) == 0 ? std::error_code() : LastError();
}

}  // namespace linealis::posix
