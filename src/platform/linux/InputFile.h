#pragma once

#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace linealis::posix {

/// Opens a regular file. Refuses anything else, such as a device or a pipe, before reading from it. Returns null on
/// failure and sets `error`.
std::FILE* OpenForReading(const std::filesystem::path& path, std::error_code& error);

/// Opens the standard input, which need not be a regular file. Returns null on failure and sets `error`.
std::FILE* OpenStandardInput(std::error_code& error);

/// Returns why the last read of the file failed, or no error. Call it right after the read, before anything else
/// can change errno.
std::error_code ErrorOfReading(std::FILE* file);

/// Opens bytes as if they were a file. `bytes` must outlive the handle. Returns null on failure and sets `error`.
std::FILE* OpenMemory(std::string_view bytes, std::error_code& error);

}  // namespace linealis::posix
