#pragma once

#include "kinds/PaperKinds.h"
#include "pipeline/page/PaperPage.h"

namespace linealis {

/// Describes the page in words, for users who cannot see it: "Grid, A4 portrait, 37 by 53 cells of 5 mm".
Message PageSummary(const PaperKind& kind, const PaperPage& page);

/// Like PageSummary, without the kind and the orientation, for use after a name: "A4, 37 by 53 cells of 5 mm".
Message ShortPageSummary(const PaperPage& page);

}  // namespace linealis
