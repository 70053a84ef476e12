#include "platform/OwnUser.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace linealis {

namespace {

/// Whether this is a folder that only this user can access. A link does not count, wherever it leads.
bool IsPrivateFolder(const std::filesystem::path& path)
{
    constexpr mode_t others = 077;
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::getuid() &&
           (status.st_mode & others) == 0;
}

}  // namespace

std::filesystem::path PrivateRuntimeFolder(const std::filesystem::path& temporary)
{
    const char* const given = std::getenv("XDG_RUNTIME_DIR");
    if (given != nullptr && IsPrivateFolder(given)) {
        return given;
    }
    constexpr mode_t ownerOnly = 0700;
    const std::filesystem::path own = temporary / ("linealis-" + std::to_string(::getuid()));
    ::mkdir(own.c_str(), ownerOnly);
    return IsPrivateFolder(own) ? own : std::filesystem::path();
}

bool PeerIsOwnUser(int socket)
{
#ifdef SO_PEERCRED
    struct ucred peer {};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::getuid();
#else
    uid_t user = 0;
    gid_t group = 0;
    return ::getpeereid(socket, &user, &group) == 0 && user == ::getuid();
#endif
}

}  // namespace linealis
