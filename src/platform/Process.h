#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

namespace linealis {

/// Sets up signal handling for a program without windows. A signal that ends the program first removes the
/// temporary files of unfinished writes. A write beyond the file size limit fails as a write instead of ending the
/// program.
void EndCleanlyOnSignals();

/// Blocks the signals above for the current thread, and for the threads that it starts meanwhile, as long as the
/// object exists. A signal that arrives in that time takes effect when the object is destroyed.
class EndingSignalsHeld {
public:
    EndingSignalsHeld();
    ~EndingSignalsHeld();
    EndingSignalsHeld(const EndingSignalsHeld&) = delete;
    EndingSignalsHeld& operator=(const EndingSignalsHeld&) = delete;

    /// Whether a blocked signal is pending.
    bool OneHasArrived() const;

private:
    struct Mask;
    std::unique_ptr<Mask> before;
};

/// Whether the stream is a terminal.
bool IsTerminal(std::FILE* stream);

/// Returns the path of the executable of this program. `calledAs` is argv[0], used if the system does not provide
/// the path.
std::filesystem::path OwnProgram(const char* calledAs);

/// Returns the path of a program that belongs to this one: in the same folder if it is there, otherwise where an
/// installation has it, in libexec. It need not exist.
inline std::filesystem::path HelperProgram(const char* calledAs, const char* name)
{
    const std::filesystem::path folder = OwnProgram(calledAs).parent_path();
    std::error_code error;
    const std::filesystem::path beside = folder / name;
    return std::filesystem::exists(beside, error) ? beside : folder.parent_path() / "libexec/linealis" / name;
}

/// The name of the program that makes pads. It is a program of its own because loading the PDF library that it
/// needs would slow down every start of the others.
inline constexpr const char* padProgram = "linealis-pad";

/// Replaces the process with another program, as execv does. `arguments` includes the program name and ends with a
/// null pointer. Returns only on failure, with the reason.
std::error_code BecomeProgram(const std::filesystem::path& program, char** arguments);

/// Starts a program, found through PATH, with one argument. Does not wait for it to end. Returns why it could not
/// be started.
std::error_code StartProgram(std::string program, std::string argument);

}  // namespace linealis
