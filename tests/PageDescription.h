#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace linealis::test {

// A page as a text for people, from which the page's content can be made again to the byte. A line of it is a thing
// that the page shows: "SETTINGS: THING {PEN}". The settings are those written since the thing before, the pen is
// what they and all earlier ones come to. "31 x THING" is 31 things: in the k-th, counted from 0, a number "36+18"
// is 36 + k * 18, "1|2|5" the k-th of these, "=" the number before the last one. "3 x" alone repeats the lines
// indented below it. Lines of the content that make no thing stand as raw "LINE".

std::string Describe(std::string_view content);

/// A line of the content, and which thing of the description it belongs to.
struct ContentLine {
    std::string text;
    std::string origin;
};

std::vector<ContentLine> Unfold(const std::vector<std::string>& description);

}  // namespace linealis::test
