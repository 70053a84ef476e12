#pragma once

#include "pdf/StandardFonts.h"

#include <optional>
#include <string>

namespace linealis {

/// A font of this machine.
struct FontFile {
    std::string path;
    int number = 0;  ///< of the font among those in the file
};

/// Returns the font of this machine that stands in for a standard font, or nothing if there is none.
std::optional<FontFile> FindFontFile(const StandardFont& font);

}  // namespace linealis
