#include "exchange/CarriedText.h"

#include "exchange/PngFile.h"

#include <array>
#include <utility>

namespace linealis {

namespace {

using Escape = std::pair<char, std::string_view>;
constexpr std::array escapes = {Escape{'&', "&amp;"}, Escape{'<', "&lt;"}, Escape{'>', "&gt;"},
                                Escape{'"', "&quot;"}};

std::string FromXmlText(std::string_view text)
{
    std::string plain;
    while (!text.empty()) {
        std::size_t taken = 0;
        for (const auto& [character, escaped] : escapes) {
            if (text.starts_with(escaped)) {
                plain += character;
                taken = escaped.size();
            }
        }
        if (taken == 0) {
            plain += text.front();
            taken = 1;
        }
        text.remove_prefix(taken);
    }
    return plain;
}

/// What stands in the first element of the name; empty if there is none.
std::string TextOfElement(std::string_view xml)
{
    const std::string begin = "<" + std::string(carriedElement), end = "</" + std::string(carriedElement);
    const std::size_t tag = xml.find(begin);
    const std::size_t start = tag == std::string_view::npos ? tag : xml.find('>', tag);
    const std::size_t stop = start == std::string_view::npos ? start : xml.find(end, start);
    return stop == std::string_view::npos ? "" : FromXmlText(xml.substr(start + 1, stop - start - 1));
}

}  // namespace

std::string XmlText(std::string_view text)
{
    std::string escaped;
    for (const char c : text) {
        std::string_view shown(&c, 1);
        for (const auto& [character, escape] : escapes) {
            shown = c == character ? escape : shown;
        }
        // XML knows no other controls, not even escaped.
        const bool isControl = static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' && c != '\r';
        escaped += isControl ? std::string_view("?") : shown;
    }
    return escaped;
}

std::optional<std::string> TextInPicture(std::string_view bytes)
{
    if (bytes.starts_with(pngSignature)) {
        return TextInPng(bytes);
    }
    if (bytes.starts_with('<') || bytes.starts_with("\xEF\xBB\xBF<")) {
        return TextOfElement(bytes);
    }
    return std::nullopt;
}

}  // namespace linealis
