#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace linealis {

/// A font family that a page can name, and the families that stand in for it where it is missing, best first.
struct FontFamily {
    std::span<const std::string_view> names;  ///< the family itself first
    std::string_view generic;                 ///< as CSS has it: "monospace", "sans-serif", "serif", or empty
};

/// How wide the characters of MacRomanEncoding are, from 0x20 on, in thousandths of the font's size.
using FontWidths = std::array<std::uint16_t, 224>;

extern const FontWidths helveticaWidths, helveticaBoldWidths, timesWidths, timesBoldWidths, timesItalicWidths,
    timesBoldItalicWidths;

/// One of PDF's 14 standard fonts.
struct StandardFont {
    std::string_view name;   ///< as a PDF file has it: "Courier-BoldOblique"
    std::string_view title;  ///< as a form has it: "Courier Bold Oblique"
    const FontFamily& family;
    bool isBold = false;
    bool isSlanted = false;
    const FontWidths* widths = nullptr;  ///< null of fonts that no form offers
};

/// The fonts by the number in their name on the page, /F0 to /F14. The first two are the same.
std::span<const StandardFont, 15> StandardFonts();

/// The font of that number. Of others: the nearest.
const StandardFont& StandardFontOf(int number);

/// How wide readers show a text of this font, in multiples of its size; 0 if the width of a character is not known.
/// Pages are not laid out by it: MyPDFGenerator::StringWidth counts all characters as equally wide.
double ShownWidth(const StandardFont& font, std::string_view macRoman);

}  // namespace linealis
