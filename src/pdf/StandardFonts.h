#pragma once

#include <span>
#include <string_view>

namespace linealis {

/// A font family that a page can name, and the families that stand in for it where it is missing, best first.
struct FontFamily {
    std::span<const std::string_view> names;  ///< the family itself first
    std::string_view generic;                 ///< as CSS has it: "monospace", "sans-serif", "serif", or empty
};

/// One of PDF's 14 standard fonts.
struct StandardFont {
    const FontFamily& family;
    bool isBold = false;
    bool isSlanted = false;
};

/// The font by the number in its name on the page, /F0 to /F14. Others become the nearest.
const StandardFont& StandardFontOf(int number);

}  // namespace linealis
