#include "exchange/CarriedText.h"

#include "exchange/PngText.h"
#include "kinds/PadFile.h"
#include "pdf/PdfAttachment.h"

#include <pugixml.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace linealis {

using namespace std::string_view_literals;

namespace {

using Escape = std::pair<char, std::string_view>;
constexpr std::array escapes = {Escape{'&', "&amp;"}, Escape{'<', "&lt;"}, Escape{'>', "&gt;"},
                                Escape{'"', "&quot;"}};

/// Returns the prefix of the namespace of the form if the node declares it: "linealis:", or an empty text for the
/// default namespace.
std::optional<std::string> DeclaredPrefix(const pugi::xml_node& node)
{
    constexpr std::string_view declaration = "xmlns";
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        std::string_view name = attribute.name();
        if (attribute.value() == carriedNamespace && name.starts_with(declaration)) {
            name.remove_prefix(declaration.size());
            return name.empty() ? std::string() : std::string(name.substr(1)) + ':';
        }
    }
    return std::nullopt;
}

/// Returns the text in the first form element of an SVG file, or an empty text if there is none. Ignores errors of
/// the parser, which keeps the nodes before an error: the file may be cut off.
std::string TextInSvg(std::string_view svg)
{
    pugi::xml_document document;
    document.load_buffer(svg.data(), svg.size());
    const pugi::xml_node declarer =
        document.find_node([](const pugi::xml_node& node) { return DeclaredPrefix(node).has_value(); });
    const std::string name =
        DeclaredPrefix(declarer).value_or("") + std::string(carriedElement.substr(carriedElement.find(':') + 1));
    const pugi::xml_node form =
        declarer.name() == name
            ? declarer
            : declarer.find_node([&](const pugi::xml_node& node) { return node.name() == name; });
    std::string text;
    for (const pugi::xml_node& piece : form.children()) {
        text += piece.value();
    }
    return text;
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
        // XML 1.0 forbids all other control characters, even escaped.
        const bool isControl = static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' && c != '\r';
        escaped += isControl ? std::string_view("?") : shown;
    }
    return escaped;
}

bool IsPdf(std::string_view bytes)
{
    return bytes.starts_with("%PDF-");
}

std::optional<std::string> TextInPicture(std::string_view bytes)
{
    bytes = bytes.substr(0, longestForm);
    if (IsPdf(bytes)) {
        return std::string(PdfAttachmentIn(bytes, formMimeType));
    }
    if (bytes.starts_with(pngSignature)) {
        return TextInPng(bytes);
    }
    constexpr std::array beginningsOfXml = {"<"sv, "\xEF\xBB\xBF<"sv, "\xFE\xFF\0<"sv, "\xFF\xFE<"sv};
    if (std::any_of(beginningsOfXml.begin(), beginningsOfXml.end(),
                    [&](std::string_view beginning) { return bytes.starts_with(beginning); })) {
        return TextInSvg(bytes);
    }
    return std::nullopt;
}

}  // namespace linealis
