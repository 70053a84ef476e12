#include "exchange/FontFaces.h"

#include "exchange/FontFiles.h"
#include "pdf/StandardFonts.h"

#include FT_MODULE_H

#include <algorithm>
#include <new>
#include <string>

namespace linealis {

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
        const std::optional<FontFile> file = FindFontFile(StandardFontOf(font));
        FT_Face face = nullptr;
        if (file && Succeeded(FT_New_Face(library, file->path.c_str(), file->number, &face))) {
            faces[index] = face;
        }
    }
    return faces[index];
}

}  // namespace linealis
