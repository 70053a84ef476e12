#pragma once

#include "cli/Pad.h"

namespace linealis::cli {

/// All of linealis-cli: does what the command line says, with a message on standard error where it cannot. Returns
/// the status to end with.
int Main(int argc, char** argv, const PadWork& padWork);

}  // namespace linealis::cli
