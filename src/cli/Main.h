#pragma once

namespace linealis::cli {

/// Runs linealis-cli: executes the command line, and prints a message on standard error if that fails. Returns the
/// exit status of the program.
int Main(int argc, char** argv);

}  // namespace linealis::cli
