#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

namespace linealis {

/// Gives the program its arguments in UTF-8, and lets its standard streams carry bytes, where the system does not
/// do so by itself. Call it first.
void PrepareProgram(int& argc, char**& argv);

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

/// A program that was started or could not be.
struct ProgramStart {
    const char* name;       ///< of the program
    std::error_code error;  ///< why it could not be started
};

/// Opens a file in the default viewer of the system. Does not wait for the viewer to end.
ProgramStart OpenInViewer(const std::filesystem::path& file);

}  // namespace linealis
