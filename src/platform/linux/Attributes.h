#pragma once

#include <system_error>

namespace linealis::posix {

/// Gives a new file, which nobody but its owner may open yet, the owner, the group, the permissions and the
/// extended attributes of the old one, as far as the system allows it. Never gives anybody more rights than the old
/// file did; set-user-ID and set-group-ID, and what vouches for the old bytes, do not go over.
std::error_code TakeOverAttributes(int oldFile, int newFile);

}  // namespace linealis::posix
