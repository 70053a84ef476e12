#pragma once

#include <filesystem>

namespace linealis {

/// Returns a folder that only this user can access, for files that live as long as the session: $XDG_RUNTIME_DIR,
/// or a folder inside `temporary`, which is created if needed. Returns an empty path if neither can be trusted.
std::filesystem::path PrivateRuntimeFolder(const std::filesystem::path& temporary);

/// Whether the process at the other end of a connected local socket belongs to this user.
bool PeerIsOwnUser(int socket);

}  // namespace linealis
