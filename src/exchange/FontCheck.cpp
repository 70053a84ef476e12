#include "exchange/FontCheck.h"

#include "exchange/FontFaces.h"
#include "pdf/PageContent.h"
#include "pdf/StandardFonts.h"

#include FT_ADVANCES_H

#include <cmath>
#include <set>

namespace linealis {

namespace {

/// Collects the numbers of the fonts that show text.
struct FontCollector final : PageSink {
    std::set<int> fonts;

    bool Scale(double /*sx*/, double /*sy*/) override { return true; }
    bool Stroke(PagePath /*path*/, const PagePen& /*pen*/) override { return true; }
    bool Fill(PagePath /*path*/, const PageColor& /*color*/) override { return true; }
    bool FillAndStroke(PagePath /*path*/, const PageColor& /*color*/, const PagePen& /*pen*/) override
    {
        return true;
    }
    bool Text(const PageText& text) override
    {
        if (!text.bytes.empty()) {
            fonts.insert(text.font);
        }
        return true;
    }
};

/// Whether the printable ASCII characters of the face are as wide as those of the font, with a tolerance of 1/1000
/// of the font size. Metrically compatible faces match exactly. True for a font without known widths.
bool HasWidths(FT_Face face, const StandardFont& font)
{
    constexpr double unitsPerSize = 1000.0, rounding = 1.0;
    constexpr char first = ' ', last = '~';
    for (char character = first; font.widths != nullptr && character <= last; ++character) {
        FT_Fixed advance = 0;
        const FT_UInt glyph = FT_Get_Char_Index(face, static_cast<FT_ULong>(character));
        if (!Succeeded(FT_Get_Advance(face, glyph, FT_LOAD_NO_SCALE, &advance)) ||
            std::abs(static_cast<double>(advance) / face->units_per_EM -
                     ShownWidth(font, std::string_view(&character, 1))) > rounding / unitsPerSize) {
            return false;
        }
    }
    return true;
}

}  // namespace

PageWarnings FontWarnings(std::string_view content)
{
    FontCollector page;
    ReadPage(content, page);
    PageWarnings warnings;
    FontFaces faces;
    for (const int number : page.fonts) {
        const StandardFont& font = StandardFontOf(number);
        const FT_Face face = faces.FaceOf(number);
        if (face == nullptr) {
            warnings.push_back(
                {"font", "",
                 Message("Texts in %1 are not shown: no font is installed (try fonts-urw-base35)", font.title)});
        } else if (!HasWidths(face, font)) {
            warnings.push_back(
                {"font", "",
                 Message("Texts in %1 are shown in %2, which has other widths (try fonts-urw-base35)", font.title,
                         face->family_name)});
        }
    }
    return warnings;
}

}  // namespace linealis
