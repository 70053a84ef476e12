#include "cli/Errors.h"

#include "pipeline/form/NearestInput.h"
#include "platform/Process.h"
#include "text/MacRoman.h"

#include <array>
#include <cstdio>
#include <mutex>
#include <utility>

namespace linealis::cli {

namespace {

/// Whether the character is safe to print. Takes an element of Characters(): a single byte is ASCII or invalid, and
/// 0xC2 0x80 to 0xC2 0x9F are the C1 controls.
bool IsShownAsItIs(std::string_view character)
{
    if (character.size() == 1) {
        return character[0] >= ' ' && character[0] <= '~';
    }
    return character < "\xC2\x80" || character > "\xC2\x9F";
}

/// Returns every byte as \xNN.
std::string Escaped(std::string_view bytes)
{
    std::string escaped;
    for (const char byte : bytes) {
        std::array<char, 5> text{};
        std::snprintf(text.data(), text.size(), "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        escaped += text.data();
    }
    return escaped;
}

/// Writes messages to standard error and keeps a status line below them if it is a terminal. Thread-safe.
class StandardError {
public:
    /// Prints the text in place of the status line, and the status line again below it.
    void Print(const std::string& text)
    {
        const std::lock_guard lock(mutex);
        Write((status.empty() ? "" : clearLine) + text + status);
    }

    void SetStatus(const std::string& text)
    {
        const std::lock_guard lock(mutex);
        if (text != status && IsTerminal(stderr)) {
            status = text;
            Write(clearLine + text);
        }
    }

private:
    static void Write(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stderr); }

    // Moves the cursor to the start of the line and erases it (ECMA-48, EL).
    const std::string clearLine = "\r\x1B[K";
    std::mutex mutex;
    std::string status;
};

StandardError standardError;

/// Where Complain collects the output of this thread; null if it prints.
thread_local std::string* keptHere = nullptr;

}  // namespace

std::string Readable(std::string_view text)
{
    std::string shown;
    for (const std::string_view character : Characters(text)) {
        shown += IsShownAsItIs(character) ? std::string(character) : Escaped(character);
    }
    return shown;
}

void Complain(std::string_view message)
{
    const std::string line = "linealis-cli: " + Readable(message) + '\n';
    if (keptHere != nullptr) {
        *keptHere += line;
    } else {
        standardError.Print(line);
    }
}

ComplaintsKept::ComplaintsKept()
{
    keptHere = &text;
}

ComplaintsKept::~ComplaintsKept()
{
    keptHere = nullptr;
}

void PrintComplaints(const std::string& text)
{
    if (!text.empty()) {
        standardError.Print(text);
    }
}

void ShowStatus(const std::string& text)
{
    standardError.SetStatus(text);
}

UsageError Unknown(std::string_view what, std::string_view given, std::vector<std::string> possible)
{
    return {UnknownText(what, given, std::move(possible))};
}

UsageError Unknown(const UnknownInput& input)
{
    return Unknown(input.what, input.given, input.possible);
}

}  // namespace linealis::cli
