#pragma once

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace linealis {

/// Opens a regular file. Refuses anything else, such as a device or a pipe, before reading from it. Returns null on
/// failure and sets `error`.
std::FILE* OpenForReading(const std::filesystem::path& path, std::error_code& error);

/// Opens the standard input, which need not be a regular file. Returns null on failure and sets `error`.
std::FILE* OpenStandardInput(std::error_code& error);

}  // namespace linealis
