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

/// How far a text is from another, without regard to case.
struct Distance {
    std::size_t toBeginning = 0;  ///< the least of what the other begins with, or a word in it
    std::size_t toWhole = 0;

    friend auto operator<=>(const Distance&, const Distance&) = default;
};

/// How many letters must be changed, added or taken away to make one text of the other (Levenshtein).
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

/// Whether a word of a name or an alias begins there: EditTopMargin, top-margin.
bool BeginsWord(std::string_view text, std::size_t place)
{
    const bool isCapital = text[place] != SmallLetter(text[place]);
    return IsLetter(text[place]) &&
           (!IsLetter(text[place - 1]) || (isCapital && text[place - 1] == SmallLetter(text[place - 1])));
}

/// What begins with the given text keeps its order.
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
