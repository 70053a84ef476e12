#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace linealis {

/// A language in which messages can be shown. This class itself is English.
class Language {
public:
    Language() = default;
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;
    virtual ~Language() = default;

    /// Returns the translation of an English text, or the text itself if there is none.
    virtual std::string Text(std::string_view english) const { return std::string(english); }
    /// Returns the translation of a text that depends on a count, in the form for that count.
    virtual std::string Text(std::string_view one, std::string_view many, std::int64_t count) const
    {
        return std::string(count == 1 ? one : many);
    }
    /// Returns a number, given with a decimal point, with the decimal mark of the language.
    virtual std::string Number(std::string_view withPoint) const { return std::string(withPoint); }
};

/// Returns the number of places %1, %2, ... that a text has without a gap.
constexpr std::size_t PlacesIn(std::string_view text)
{
    std::size_t places = 0;
    for (char place[] = {'%', '1'}; text.find(std::string_view(place, 2)) != std::string_view::npos; ++place[1]) {
        ++places;
    }
    return places;
}

/// An English text with a place for each argument: %1, %2, ... Does not compile with fewer or more places.
template <std::size_t arguments>
class Template {
public:
    consteval Template(const char* english)  // NOLINT(google-explicit-constructor): stands for the text
        : text(english)
    {
        if (PlacesIn(text) != arguments) {
            throw std::logic_error("a text needs one place for each argument");
        }
    }

    constexpr std::string_view Text() const { return text; }

private:
    std::string_view text;
};

/// A text of the catalog without places.
using Phrase = Template<0>;

/// An English text for one and a text for any other count, with the same places.
struct Plural {
    consteval Plural(const char* forOne, const char* forMany) : one(forOne), many(forMany)
    {
        if (PlacesIn(one) != PlacesIn(many)) {
            throw std::logic_error("both texts need the same places");
        }
    }

    std::string_view one;
    std::string_view many;
};

/// What the program says, as a value: an English text, what fills its places, and a count if the text depends on
/// one. The command line and the library show it in English, windows in the language of their reader.
class Message {
public:
    /// Says nothing.
    Message() = default;

    /// An argument is a message, a number, or a text that is the same in all languages, such as the name of a file.
    template <typename... Arguments>
    explicit Message(Template<sizeof...(Arguments)> english, const Arguments&... arguments)
        : text(english.Text()), parts{PartOf(arguments)...}
    {}

    /// The form of the text depends on a whole number, which is an argument only if the text shows it.
    template <typename... Arguments>
    Message(const Plural& english, double theCount, const Arguments&... arguments)
        : text(english.one), many(english.many), count(theCount), parts{PartOf(arguments)...}
    {}

    /// A caption, an item of a popup, or another text without places that the program lists.
    static Message Listed(std::string_view english) { return {Type::Text, english}; }

    /// A text that is the same in all languages.
    static Message Verbatim(std::string_view given) { return {Type::Verbatim, given}; }

    /// A number, formatted with a decimal point.
    static Message Number(std::string_view formatted) { return {Type::Number, formatted}; }

    /// Messages with a text between them that is the same in all languages. Skips those that say nothing.
    static Message Joined(std::vector<Message> messages, std::string_view between);

    bool IsEmpty() const { return text.empty() && parts.empty(); }
    std::string English() const { return In(Language()); }
    std::string In(const Language& language) const;

    bool operator==(const Message&) const = default;

private:
    enum class Type { Text, Verbatim, Number, Join };

    Message(Type theType, std::string_view theText) : type(theType), text(theText) {}

    static Message PartOf(const Message& message) { return message; }
    static Message PartOf(std::string_view given) { return Verbatim(given); }
    template <typename Value>
    requires std::is_arithmetic_v<Value>
    static Message PartOf(Value number) { return FromNumber(static_cast<double>(number)); }
    static Message FromNumber(double number);

    std::string Filled(std::string_view places, const Language& language) const;

    Type type = Type::Text;
    std::string text;  ///< of a join, the text between the parts
    std::string many;  ///< empty if the text does not depend on a count
    double count = 0.0;
    std::vector<Message> parts;  ///< what fills the places, or is joined
};

}  // namespace linealis
