#include "cli/Errors.h"

#include "pdf/MacRoman.h"
#include "platform/Process.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <mutex>
#include <numeric>

namespace linealis::cli {

namespace {

char Lower(char c)
{
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

/// How many letters must be changed, added or taken away to make one text of the other (Levenshtein), without
/// regard to case.
std::size_t Distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (Lower(a[i]) == Lower(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

/// Of a piece as Characters() gives it: a byte alone is ASCII or no UTF-8, and C2 80 to C2 9F are controls too.
bool IsShownAsItIs(std::string_view character)
{
    if (character.size() == 1) {
        return character[0] >= ' ' && character[0] <= '~';
    }
    return character < "\xC2\x80" || character > "\xC2\x9F";
}

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

/// Messages, and on a terminal a line below them that the next message or status takes the place of.
class StandardError {
public:
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

    const std::string clearLine = "\r\x1B[K";
    std::mutex mutex;
    std::string status;
};

StandardError standardError;

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
    standardError.Print("linealis-cli: " + Readable(message) + '\n');
}

void ShowStatus(const std::string& text)
{
    standardError.SetStatus(text);
}

UsageError Unknown(std::string_view what, std::string_view given, std::vector<std::string> possible)
{
    constexpr std::size_t longestCompared = 100;
    const std::string_view compared = given.substr(0, longestCompared);
    std::stable_sort(possible.begin(), possible.end(), [&](const std::string& a, const std::string& b) {
        return Distance(compared, a) < Distance(compared, b);
    });
    std::string message = "unknown " + std::string(what) + " '" + std::string(given) + "'; possible: ";
    for (std::size_t i = 0; i < possible.size(); ++i) {
        message += (i == 0 ? "" : ", ") + possible[i];
    }
    return {message};
}

UsageError Unknown(const UnknownInput& input)
{
    return Unknown(input.what, input.given, input.possible);
}

}  // namespace linealis::cli
