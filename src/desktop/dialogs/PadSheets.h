#pragma once

#include "desktop/dialogs/PrintPage.h"
#include "kinds/PadSheet.h"

namespace linealis::desktop {

/// Returns the sheets of a pad for the printer. Without a back, they are printed on one side. The pages must have
/// the size that the layout says, and outlive the result.
PrintedSheets PadSheets(const PadLayout& layout, const DrawnPage& front, const DrawnPage* back);

}  // namespace linealis::desktop
