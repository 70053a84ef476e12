#include "text/Message.h"

#include "text/Numbers.h"

#include <algorithm>

namespace linealis {

Message Message::Joined(std::vector<Message> messages, std::string_view between)
{
    Message joined(Type::Join, between);
    std::erase_if(messages, [](const Message& message) { return message.IsEmpty(); });
    joined.parts = std::move(messages);
    return joined.parts.empty() ? Message() : joined;
}

Message Message::FromNumber(double number)
{
    return Number(Str(number));
}

std::string Message::In(const Language& language) const
{
    switch (type) {
    case Type::Verbatim:
        return text;
    case Type::Number:
        return language.Number(text);
    case Type::Join: {
        std::string joined;
        for (const Message& part : parts) {
            joined += (&part == &parts.front() ? "" : text) + part.In(language);
        }
        return joined;
    }
    case Type::Text:
        break;
    }
    return text.empty()
               ? ""
               : Filled(many.empty() ? language.Text(text) : language.Text(text, many, truncated(count)), language);
}

/// Replaces the places by the parts. Without parts, %1 is no place but a text.
std::string Message::Filled(std::string_view places, const Language& language) const
{
    std::string filled;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const std::size_t part = places[i] == '%' && i + 1 < places.size() && places[i + 1] >= '1'
                                     ? static_cast<std::size_t>(places[i + 1] - '1')
                                     : parts.size();
        if (part < parts.size()) {
            filled += parts[part].In(language);
            ++i;
        } else {
            filled += places[i];
        }
    }
    return filled;
}

}  // namespace linealis
