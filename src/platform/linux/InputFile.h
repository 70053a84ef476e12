#pragma once

#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace linealis::posix {

/// Opens a regular file. Anything else that could be read, a device or a pipe, is refused before it is. Nothing on
/// failure, and `error` tells why.
std::FILE* OpenForReading(const std::filesystem::path& path, std::error_code& error);

/// Opens the standard input, which may be anything. Nothing on failure, as above.
std::FILE* OpenStandardInput(std::error_code& error);

/// Why the last read of the file failed; nothing if it did not. To be asked before anything else can fail.
std::error_code ErrorOfReading(std::FILE* file);

/// Opens bytes as if they were a file's. They must outlive it. Nothing on failure, as above.
std::FILE* OpenMemory(std::string_view bytes, std::error_code& error);

}  // namespace linealis::posix
