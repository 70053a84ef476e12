#pragma once

#include <system_error>

namespace linealis::posix {

/// Copies the owner, group, permissions, and extended attributes of the old file to the new one, as far as the
/// system allows. Until then, only the owner may open the new file. Never grants more rights than the old file had:
/// the set-user-ID and set-group-ID bits, and attributes that vouch for the old content, are not copied.
std::error_code TakeOverAttributes(int oldFile, int newFile);

}  // namespace linealis::posix
