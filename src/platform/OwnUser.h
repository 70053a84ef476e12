#pragma once

#include <filesystem>

namespace linealis {

/// A folder that nobody but this user can look into, for what lives as long as the session: $XDG_RUNTIME_DIR, or
/// one in the folder `temporary`, made if it is not there. Empty if there is none that can be trusted.
std::filesystem::path PrivateRuntimeFolder(const std::filesystem::path& temporary);

/// Whether the process at the other end of a connected local socket is this user's.
bool PeerIsOwnUser(int socket);

}  // namespace linealis
