#include "cli/Errors.h"
#include "cli/Main.h"
#include "platform/Process.h"

namespace {

/// Replaces this process with the program that makes pads. Returns only by throwing WorkError.
void CallPadProgram(char** argv)
{
    const std::filesystem::path program = linealis::HelperProgram(argv[0], linealis::padProgram);
    const std::error_code error = linealis::BecomeProgram(program, argv);
    throw linealis::cli::WorkError{"cannot run the program that makes pads, " + program.string() + ": " +
                                   error.message()};
}

}  // namespace

int main(int argc, char** argv)
{
    return linealis::cli::Main(argc, argv, [argv](const linealis::cli::PadRequest&) { CallPadProgram(argv); });
}
