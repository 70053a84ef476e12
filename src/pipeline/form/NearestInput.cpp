#include "pipeline/form/NearestInput.h"

#include "text/LetterCase.h"
#include "text/ShortText.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <numeric>
#include <utility>

namespace linealis {

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

}  // namespace

Message UnknownMessage(std::string_view what, std::string_view given, std::vector<std::string> possible)
{
    // The distance takes time proportional to the product of both lengths, so a long text is cut.
    constexpr std::size_t longestCompared = 100, longestList = 18, nearest = 5;
    std::multimap<Distance, std::string> byDistance;
    for (std::string& each : possible) {
        const Distance distance = DistanceTo(given.substr(0, longestCompared), each);
        byDistance.emplace(distance, std::move(each));
    }
    std::size_t left = byDistance.size();
    const std::size_t hidden = left > longestList ? left - nearest : 0;
    std::vector<Message> listed;
    for (auto each = byDistance.begin(); left > hidden; ++each, --left) {
        listed.push_back(Message::Verbatim(each->second));
    }
    const Message list = Message::Joined(std::move(listed), ", ");
    const std::string shown = Shortened(given);
    return hidden > 0 ? Message("unknown %1 '%2'; possible: %3 and %4 more", what, shown, list, hidden)
                      : Message("unknown %1 '%2'; possible: %3", what, shown, list);
}

std::string UnknownText(std::string_view what, std::string_view given, std::vector<std::string> possible)
{
    return UnknownMessage(what, given, std::move(possible)).English();
}

}  // namespace linealis
