#include "cli/Errors.h"
#include "cli/Main.h"
#include "platform/Process.h"

namespace {

/// Replaces this process with the program that makes pads, which is in the same folder or, when installed, in
/// libexec. It is a program of its own because loading the PDF library that it needs would slow down every start of
/// this one. Returns only by throwing WorkError.
void CallPadProgram(char** argv)
{
    using linealis::cli::WorkError;
    namespace fs = std::filesystem;
    const char* const name = "linealis-pad";
    const fs::path folder = linealis::OwnProgram(argv[0]).parent_path();
    const fs::path beside = folder / name, installed = folder.parent_path() / "libexec/linealis" / name;
    std::error_code error = linealis::BecomeProgram(beside, argv);
    if (error == std::errc::no_such_file_or_directory) {
        error = linealis::BecomeProgram(installed, argv);
    }
    throw WorkError{"cannot run the program that makes pads, " + installed.string() + ": " + error.message()};
}

}  // namespace

int main(int argc, char** argv)
{
    return linealis::cli::Main(argc, argv, [argv](const linealis::cli::PadRequest&) { CallPadProgram(argv); });
}
