#include "platform/InputFile.h"

#include "platform/FileFault.h"

#include <cerrno>

namespace linealis {

std::FILE* OpenForReading(const std::filesystem::path& path, std::error_code& error)
{
    if (path.native().find(L'\0') != std::filesystem::path::string_type::npos) {
        error = std::make_error_code(std::errc::invalid_argument);
        return nullptr;
    }
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::directory) {
        error = std::make_error_code(std::errc::is_a_directory);
    } else if (status.type() == std::filesystem::file_type::not_found) {
        error = std::make_error_code(std::errc::no_such_file_or_directory);
    } else if (!error && status.type() != std::filesystem::file_type::regular) {
        error = FileFault::NotRegular;
    }
    if (error) {
        return nullptr;
    }
    std::FILE* const file = ::_wfopen(path.c_str(), L"rb");
    if (file == nullptr) {
        error = {errno, std::generic_category()};
    }
    return file;
}

std::FILE* OpenStandardInput(std::error_code& error)
{
    error.clear();
    return stdin;
}

}  // namespace linealis
