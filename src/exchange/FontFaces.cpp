#include "exchange/FontFaces.h"

#include "pdf/StandardFonts.h"

#include <fontconfig/fontconfig.h>
#include FT_MODULE_H

#include <algorithm>
#include <new>
#include <string>

namespace linealis {

namespace {

/// Frees a pattern of fontconfig.
struct DestroyPattern {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, DestroyPattern>;

/// Returns the pattern that asks fontconfig for the font or, in this order, its substitutes.
Pattern PatternOf(const StandardFont& font)
{
    Pattern pattern(FcPatternCreate());
    if (!pattern) {
        throw std::bad_alloc();
    }
    const auto addFamily = [&](std::string_view name) {
        FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(std::string(name).c_str()));
    };
    std::for_each(font.family.names.begin(), font.family.names.end(), addFamily);
    if (!font.family.generic.empty()) {
        addFamily(font.family.generic);
    }
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, font.isBold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern.get(), FC_SLANT, font.isSlanted ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

}  // namespace

bool Succeeded(FT_Error error)
{
    if (error == FT_Err_Out_Of_Memory) {
        throw std::bad_alloc();
    }
    return error == FT_Err_Ok;
}

FontFaces::FontFaces()
{
    // FT_Init_FreeType fails only if memory runs out. It silently skips modules that it has no memory for, so check
    // for those that are needed.
    const bool isMade = FT_Init_FreeType(&library) == FT_Err_Ok;
    constexpr std::array needed = {"smooth", "sfnt", "truetype", "cff"};
    if (!isMade || !std::all_of(needed.begin(), needed.end(),
                                [this](const char* module) { return FT_Get_Module(library, module) != nullptr; })) {
        FT_Done_FreeType(library);
        throw std::bad_alloc();
    }
}

FontFaces::~FontFaces()
{
    FT_Done_FreeType(library);  // closes the faces too
}

FT_Face FontFaces::FaceOf(int font)
{
    const auto index = static_cast<std::size_t>(std::clamp(font, 0, static_cast<int>(faces.size()) - 1));
    if (!wasSought[index]) {
        wasSought[index] = true;
        FcResult result = FcResultMatch;
        const Pattern match(FcFontMatch(nullptr, PatternOf(StandardFontOf(font)).get(), &result));
        FcChar8* file = nullptr;
        int number = 0;
        if (match && FcPatternGetString(match.get(), FC_FILE, 0, &file) == FcResultMatch) {
            FcPatternGetInteger(match.get(), FC_INDEX, 0, &number);
            FT_Face face = nullptr;
            if (Succeeded(FT_New_Face(library, reinterpret_cast<const char*>(file), number, &face))) {
                faces[index] = face;
            }
        }
    }
    return faces[index];
}

}  // namespace linealis
