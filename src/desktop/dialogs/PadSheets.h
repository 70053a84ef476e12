#pragma once

#include "desktop/dialogs/PadJob.h"
#include "desktop/dialogs/PrintPage.h"

namespace linealis::desktop {

/// Returns the sheets of a pad for the printer. Their pages are drawn when they are needed, with `turns`, whose
/// exceptions pass through the functions that print; so does PageGivenUp. Both arguments must outlive the result.
PrintedSheets PadSheets(const PadJob& job, Turns& turns);

}  // namespace linealis::desktop
