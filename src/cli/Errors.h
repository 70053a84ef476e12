#pragma once

#include "pipeline/form/SetControl.h"

#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::cli {

/// What the user asked for makes no sense. Ends the program with status 2.
struct UsageError {
    std::string message;
};

/// What the user asked for could not be done. Ends the program with status 1.
struct WorkError {
    std::string message;
};

/// The work failed, and all that there is to say of it has been said. Ends the program as WorkError does.
struct FailureSaid {};

/// Said where std::bad_alloc ends the work.
inline constexpr const char* notEnoughMemory = "there is not enough memory";

/// Does the work on a file. Where memory runs out, the WorkError that it ends with names the file.
template <typename Work>
void WorkOn(const std::string& file, Work work)
{
    try {
        work();
    } catch (const std::bad_alloc&) {
        throw WorkError{file + ": " + notEnoughMemory};
    }
}

/// The text for a terminal: what would command it instead of being read is shown as Complain shows it.
std::string Readable(std::string_view text);

/// Prints "linealis-cli: MESSAGE" and a line end on standard error. What would command the terminal instead of
/// being read, control characters and bytes that are no UTF-8, is shown as \xNN. May be
/// called on any thread.
void Complain(std::string_view message);

/// As long as it lives, Complain on this thread prints nothing.
class ComplaintsKept {
public:
    ComplaintsKept();
    ~ComplaintsKept();
    ComplaintsKept(const ComplaintsKept&) = delete;
    ComplaintsKept& operator=(const ComplaintsKept&) = delete;

    /// What would have been printed.
    const std::string& Text() const { return text; }

private:
    std::string text;
};

/// Prints what was kept.
void PrintComplaints(const std::string& text);

/// Shows on a terminal, below all messages, what is going on; the next text replaces it, an empty one removes it.
void ShowStatus(const std::string& text);

/// "unknown WHAT 'GIVEN'; possible: ...", the nearest match first. Of a long list only the nearest five.
UsageError Unknown(std::string_view what, std::string_view given, std::vector<std::string> possible);
UsageError Unknown(const UnknownInput& input);

}  // namespace linealis::cli
