#pragma once

#include <string>

namespace linealis::cli {

/// Returns the whole text of a regular file, or of standard input for "-", which may also be a pipe or a terminal.
/// Throws WorkError if it cannot be read or is longer than `longest` bytes.
std::string ReadInput(const std::string& fileName, std::size_t longest);

/// Returns the beginning of a regular file: all of it, or more than `most` bytes. Throws WorkError if it cannot be
/// read.
std::string ReadBeginning(const std::string& fileName, std::size_t most);

}  // namespace linealis::cli
