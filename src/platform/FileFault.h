#pragma once

#include <system_error>

namespace linealis {

/// Why a file is refused that the system itself would open.
enum class FileFault { NotRegular = 1, IsALink };

std::error_code make_error_code(FileFault fault);

}  // namespace linealis

template <>
struct std::is_error_code_enum<linealis::FileFault> : std::true_type {};
