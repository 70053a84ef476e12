#pragma once

#include <system_error>

namespace linealis {

/// Reasons to refuse a file that the operating system itself would open. Convert to std::error_code.
enum class FileFault { NotRegular = 1, IsALink };

std::error_code make_error_code(FileFault fault);

}  // namespace linealis

template <>
struct std::is_error_code_enum<linealis::FileFault> : std::true_type {};
