#pragma once

#include <string>

namespace linealis::cli {

/// The text of a regular file, or of standard input for "-", which may be anything. Throws WorkError if it cannot
/// be read or has more bytes than `longest`.
std::string ReadInput(const std::string& fileName, std::size_t longest);

}  // namespace linealis::cli
