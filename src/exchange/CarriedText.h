#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace linealis {

// A picture of a page carries the form that it was made from: an SVG file in the element of this name, which may
// have another prefix for its namespace, a PNG file in the text chunk with this keyword. A PDF file of a pad has
// the forms of its pages as attached files.

inline constexpr std::string_view carriedElement = "linealis:form";
inline constexpr std::string_view carriedNamespace = "https://linealis.invalid/form";
inline constexpr std::string_view carriedKeyword = "Linealis form";

/// The number of bytes at the beginning of a file to search for a form. Also the longest JSON text of a form. In a
/// picture, the form precedes all strokes and pixels, in a pad its first page.
inline constexpr std::size_t longestForm = std::size_t{1} << 20U;

/// Escapes a UTF-8 text for the content or an attribute of an XML element. Replaces control characters that XML
/// forbids with "?".
std::string XmlText(std::string_view text);

/// Whether the bytes are those of a PDF file.
bool IsPdf(std::string_view bytes);

/// Returns the text that a picture of a page carries, or the first that a PDF file of a pad carries. Empty if it
/// carries none, nothing if the bytes are neither SVG nor PNG nor PDF. Accepts a file that is cut off after the
/// text.
std::optional<std::string> TextInPicture(std::string_view bytes);

}  // namespace linealis
