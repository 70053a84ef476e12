#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <array>
#include <memory>

namespace linealis {

/// Whether FreeType did what it was asked for. Throws std::bad_alloc if memory ran out: what is painted without
/// regard to that would lack something.
bool Succeeded(FT_Error error);

/// The machine's fonts that stand for the 14 of a page. Each is looked for when it is first wanted.
class FontFaces {
public:
    FontFaces();
    ~FontFaces();
    FontFaces(const FontFaces&) = delete;
    FontFaces& operator=(const FontFaces&) = delete;

    FT_Library Library() const { return library; }

    /// The face for the number of a font on the page, 0 to 14. Null if the machine has no font at all.
    FT_Face FaceOf(int font);

private:
    FT_Library library = nullptr;
    std::array<FT_Face, 15> faces{};
    std::array<bool, 15> wasSought{};
};

}  // namespace linealis
