#pragma once

#include "kinds/PaperKinds.h"
#include "pipeline/page/PaperPage.h"

#include <string>

namespace linealis {

/// The page in words, for who cannot see it: "Grid, A4 portrait, 37 by 53 cells of 5 mm".
std::string PageSummary(const PaperKind& kind, const PaperPage& page);

/// The same without the kind, for what stands behind a name: "A4, 37 by 53 cells of 5 mm".
std::string ShortPageSummary(const PaperPage& page);

}  // namespace linealis
