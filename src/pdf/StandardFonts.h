#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace linealis {

/// A font family that a page can name, and the families that replace it where it is missing, best first.
struct FontFamily {
    std::span<const std::string_view> names;  ///< starts with the family itself
    std::string_view generic;  ///< the generic CSS family: "monospace", "sans-serif", "serif", or empty
    double capHeight;          ///< of capital letters, in multiples of the font size
};

/// Widths of the characters of MacRomanEncoding from 0x20 on, in thousandths of the font size; 0 if unknown.
using FontWidths = std::array<std::uint16_t, 224>;

extern const FontWidths helveticaWidths, helveticaBoldWidths, timesWidths, timesBoldWidths, timesItalicWidths,
    timesBoldItalicWidths;

/// One of the 14 standard fonts of PDF.
struct StandardFont {
    std::string_view name;   ///< in a PDF file: "Courier-BoldOblique"
    std::string_view title;  ///< on a form: "Courier Bold Oblique"
    const FontFamily& family;
    bool isBold = false;
    bool isSlanted = false;
    const FontWidths* widths = nullptr;  ///< null for fonts that no form offers
};

/// The fonts by the number in their name on the page, /F0 to /F14. The first two are the same font.
std::span<const StandardFont, 15> StandardFonts();

/// Returns the font with that number. A number out of range gives the nearest font.
const StandardFont& StandardFontOf(int number);

/// Returns the width of a text as readers show it, in multiples of the font size, or 0 if the width of a character
/// is unknown. Page layout does not use it: MyPDFGenerator::StringWidth treats all characters as equally wide.
double ShownWidth(const StandardFont& font, std::string_view macRoman);

}  // namespace linealis
