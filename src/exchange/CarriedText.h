#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace linealis {

// The form that a picture of a page carries: in an SVG file as the element of that name, or of another prefix for
// its namespace, in a PNG file as the text of that keyword.

inline constexpr std::string_view carriedElement = "linealis:form";
inline constexpr std::string_view carriedNamespace = "https://linealis.invalid/form";
inline constexpr std::string_view carriedKeyword = "Linealis form";

/// So much of a file is looked at for its form, bytes: all that there may be of JSON, and the beginning of a
/// picture, where the form stands before strokes and pixels.
inline constexpr std::size_t longestForm = std::size_t{1} << 20U;

/// The text for an element of XML.
std::string XmlText(std::string_view text);

/// The text that a picture of a page carries, empty if it carries none; nothing if the bytes are neither SVG nor
/// PNG. Of a file that is cut, what is there counts.
std::optional<std::string> TextInPicture(std::string_view bytes);

}  // namespace linealis
