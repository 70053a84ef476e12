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

/// Starts a program, found through PATH, with one argument. Does not wait for it to end. Returns why it could not
/// be started.
std::error_code StartProgram(std::string program, std::string argument);

}  // namespace linealis
