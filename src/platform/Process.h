#pragma once

#include <string>
#include <system_error>

namespace linealis {

/// For a program without windows: a signal that ends it first removes what a file being written has left on the
/// disk, and a write beyond the limit of file sizes is a failed write, not the end of the program.
void EndCleanlyOnSignals();

/// Starts a program, searched for as the shell does, with one argument. Does not wait for it.
std::error_code StartProgram(std::string program, std::string argument);

}  // namespace linealis
