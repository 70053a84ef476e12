#include "platform/FileFault.h"

#include <string>

namespace linealis {

namespace {

class FileFaults final : public std::error_category {
public:
    const char* name() const noexcept override { return "file"; }
    std::string message(int fault) const override
    {
        return fault == static_cast<int>(FileFault::IsALink) ? "Is a link" : "Is not a regular file";
    }
};

}  // namespace

std::error_code make_error_code(FileFault fault)
{
    static const FileFaults category;
    return {static_cast<int>(fault), category};
}

}  // namespace linealis
