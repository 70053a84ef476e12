#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <array>
#include <memory>

namespace linealis {

/// Whether a call of FreeType succeeded. Throws std::bad_alloc if memory ran out, since ignoring that would leave
/// gaps in a picture.
bool Succeeded(FT_Error error);

/// Finds the fonts of this machine that stand in for the standard fonts of a page. Opens each face on first use.
class FontFaces {
public:
    /// Throws std::bad_alloc if FreeType cannot be initialized.
    FontFaces();
    ~FontFaces();
    FontFaces(const FontFaces&) = delete;
    FontFaces& operator=(const FontFaces&) = delete;

    FT_Library Library() const { return library; }

    /// Returns the face for a font by its number on the page; a number outside 0 to 14 gives the nearest font. Null
    /// if the machine has no suitable font. The face belongs to this object.
    FT_Face FaceOf(int font);

private:
    FT_Library library = nullptr;
    std::array<FT_Face, 15> faces{};
    std::array<bool, 15> wasSought{};
};

}  // namespace linealis
