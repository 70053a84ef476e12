#pragma once

#include "pipeline/form/SetControl.h"

#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::cli {

/// Thrown if the request of the user makes no sense. Ends the program with status 2.
struct UsageError {
    std::string message;
};

/// Thrown if the request of the user could not be fulfilled. Ends the program with status 1, or 2 for diff.
struct WorkError {
    std::string message;
};

/// Thrown if the work failed and every failure has already been reported. Ends the program as WorkError does.
struct FailureSaid {};

/// The message for std::bad_alloc.
inline constexpr const char* notEnoughMemory = "there is not enough memory";

/// Runs `work`, which writes or reads the file. Turns std::bad_alloc into a WorkError that names the file.
template <typename Work>
void WorkOn(const std::string& file, Work work)
{
    try {
        work();
    } catch (const std::bad_alloc&) {
        throw WorkError{file + ": " + notEnoughMemory};
    }
}

/// Returns the text in a form that is safe to print on a terminal: control characters, bytes that are not UTF-8,
/// and the C1 controls U+0080 to U+009F become \xNN.
std::string Readable(std::string_view text);

/// Prints "linealis-cli: MESSAGE" and a line end on standard error, in the form that Readable gives. Thread-safe.
void Complain(std::string_view message);

/// Collects what Complain would print on this thread, instead of printing it, as long as the object exists. Objects
/// on one thread must not overlap.
class ComplaintsKept {
public:
    ComplaintsKept();
    ~ComplaintsKept();
    ComplaintsKept(const ComplaintsKept&) = delete;
    ComplaintsKept& operator=(const ComplaintsKept&) = delete;

    /// The collected output.
    const std::string& Text() const { return text; }

private:
    std::string text;
};

/// Prints output that ComplaintsKept has collected. Thread-safe.
void PrintComplaints(const std::string& text);

/// Shows a status line below all messages if standard error is a terminal. Replaces the previous one; an empty text
/// removes it. Thread-safe.
void ShowStatus(const std::string& text);

/// Returns the error "unknown WHAT 'GIVEN'; possible: ...", with the nearest match first. Lists only the nearest
/// five of more than 18.
UsageError Unknown(std::string_view what, std::string_view given, std::vector<std::string> possible);
UsageError Unknown(const UnknownInput& input);

}  // namespace linealis::cli
