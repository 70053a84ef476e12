#pragma once

#include "pdf/PageContent.h"

namespace linealis {

/// Returns the entry of the color index of DXF, 1 to 255, that is nearest to the color. Black is 7, which programs
/// show in black or white, whichever differs from their background; white is 255, which stays white.
int DxfColor(const PageColor& color);

}  // namespace linealis
