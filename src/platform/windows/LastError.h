#pragma once

#include <system_error>

namespace linealis::windows {

/// Returns the error of the last system call of this thread, as the standard library names it where it can, so that
/// messages are the same on all systems.
std::error_code LastError();

}  // namespace linealis::windows
