#include "exchange/FontFiles.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>

namespace linealis {

namespace {

/// The files of a family that Windows has, with the widths of a standard family.
struct FamilyFiles {
    std::string_view family;
    std::array<const char*, 4> files;  ///< regular, bold, slanted, bold and slanted
};

constexpr auto families = std::to_array<FamilyFiles>({
    {"Courier", {"cour.ttf", "courbd.ttf", "couri.ttf", "courbi.ttf"}},
    {"Helvetica", {"arial.ttf", "arialbd.ttf", "ariali.ttf", "arialbi.ttf"}},
    {"Times", {"times.ttf", "timesbd.ttf", "timesi.ttf", "timesbi.ttf"}},
    {"Symbol", {"symbol.ttf", "symbol.ttf", "symbol.ttf", "symbol.ttf"}},
});

}  // namespace

std::optional<FontFile> FindFontFile(const StandardFont& font)
{
    const auto* const found = std::find_if(families.begin(), families.end(), [&](const FamilyFiles& each) {
        return each.family == font.family.names.front();
    });
    const char* const windows = std::getenv("WINDIR");
    if (found == families.end() || windows == nullptr) {
        return std::nullopt;
    }
    const std::size_t style = (font.isBold ? 1U : 0U) + (font.isSlanted ? 2U : 0U);
    const std::filesystem::path path = std::filesystem::path(windows) / "Fonts" / found->files.at(style);
    std::error_code error;
    return std::filesystem::exists(path, error) ? std::optional(FontFile{path.string()}) : std::nullopt;
}

}  // namespace linealis
