#include "cli/Errors.h"

#include "platform/Process.h"
#include "text/LetterCase.h"
#include "text/MacRoman.h"
#include "text/ShortText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <map>
#include <mutex>
#include <numeric>

namespace linealis::cli {

namespace {

/// How far one text is from another, ignoring case. Compared by toBeginning first, so that a few letters suffice to
/// find a long name.
struct Distance {
    std::size_t toBeginning = 0;  ///< the distance to the nearest beginning of the other text, or of a word in it
    std::size_t toWhole = 0;

    friend auto operator<=>(const Distance&, const Distance&) = default;
};

/// Returns the number of letters to change, add, or remove to turn one text into the other (Levenshtein). The last
/// row of the matrix holds the distances to every beginning of `other`.
Distance PlainDistance(std::string_view given, std::string_view other)
{
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < given.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < other.size(); ++j) {
            const std::size_t replaced = diagonal + (SmallLetter(given[i]) == SmallLetter(other[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return {*std::min_element(row.begin(), row.end()), row.back()};
}

bool IsLetter(char c)
{
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

/// Whether a word of a name or alias begins at `place`, which must be above 0: "Top" in EditTopMargin, "margin" in
/// top-margin.
bool BeginsWord(std::string_view text, std::size_t place)
{
    const bool isCapital = text[place] != SmallLetter(text[place]);
    return IsLetter(text[place]) &&
           (!IsLetter(text[place - 1]) || (isCapital && text[place - 1] == SmallLetter(text[place - 1])));
}

/// Returns the distance from `given` to a candidate. It is zero for every candidate that begins with `given`, so
/// that these keep their order.
Distance DistanceTo(std::string_view given, std::string_view other)
{
    Distance distance = PlainDistance(given, other);
    if (distance.toBeginning == 0) {
        return {};
    }
    for (std::size_t place = 1; place < other.size(); ++place) {
        if (BeginsWord(other, place)) {
            distance.toBeginning =
                std::min(distance.toBeginning, PlainDistance(given, other.substr(place)).toBeginning);
        }
    }
    return distance;
}

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
    // The distance takes time proportional to the product of both lengths, so a long text is cut.
    constexpr std::size_t longestCompared = 100, longestList = 17, nearest = 5;
    std::multimap<Distance, std::string> byDistance;
    for (std::string& each : possible) {
        const Distance distance = DistanceTo(given.substr(0, longestCompared), each);
        byDistance.emplace(distance, std::move(each));
    }
    std::size_t left = byDistance.size();
    const std::size_t hidden = left > longestList ? left - nearest : 0;
    std::string message = "unknown " + std::string(what) + " '" + Shortened(given) + "'; possible: ";
    for (auto each = byDistance.begin(); left > hidden; ++each, --left) {
        message += (each == byDistance.begin() ? "" : ", ") + each->second;
    }
    if (hidden > 0) {
        message += " and " + std::to_string(hidden) + " more";
    }
    return {message};
}

UsageError Unknown(const UnknownInput& input)
{
    return Unknown(input.what, input.given, input.possible);
}

}  // namespace linealis::cli
