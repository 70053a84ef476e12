#include "platform/windows/LastError.h"

#include <windows.h>

namespace linealis::windows {

std::error_code LastError()
{
    const std::error_code code(static_cast<int>(::GetLastError()), std::system_category());
    const std::error_condition condition = code.default_error_condition();
    return condition.category() == std::generic_category()
               ? std::error_code(condition.value(), std::generic_category())
               : code;
}

}  // namespace linealis::windows
