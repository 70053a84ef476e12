#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

namespace linealis {

/// For a program without windows: a signal that ends it first removes what a file being written has left on the
/// disk, and a write beyond the limit of file sizes is a failed write, not the end of the program.
void EndCleanlyOnSignals();

/// As long as it lives, the signals above end nothing in this thread and those that it starts meanwhile. One that
/// has arrived does its work when this ends.
class EndingSignalsHeld {
public:
    EndingSignalsHeld();
    ~EndingSignalsHeld();
    EndingSignalsHeld(const EndingSignalsHeld&) = delete;
    EndingSignalsHeld& operator=(const EndingSignalsHeld&) = delete;

    bool OneHasArrived() const;

private:
    struct Mask;
    std::unique_ptr<Mask> before;
};

/// Whether a person sees what is written to the stream.
bool IsTerminal(std::FILE* stream);

/// The file of this program, which was called as `calledAs`.
std::filesystem::path OwnProgram(const char* calledAs);

/// Goes on as another program, which gets the arguments, the first of which is its name. Returns, and why, only if
/// that cannot be.
std::error_code BecomeProgram(const std::filesystem::path& program, char** arguments);

/// Starts a program, searched for as the shell does, with one argument. Does not wait for it.
std::error_code StartProgram(std::string program, std::string argument);

}  // namespace linealis
