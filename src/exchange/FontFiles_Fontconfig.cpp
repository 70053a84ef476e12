#include "exchange/FontFiles.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <memory>
#include <new>

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

std::optional<FontFile> FindFontFile(const StandardFont& font)
{
    FcResult result = FcResultMatch;
    const Pattern match(FcFontMatch(nullptr, PatternOf(font).get(), &result));
    FcChar8* file = nullptr;
    if (!match || FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch) {
        return std::nullopt;
    }
    FontFile found{reinterpret_cast<const char*>(file)};
    FcPatternGetInteger(match.get(), FC_INDEX, 0, &found.number);
    return found;
}

}  // namespace linealis
