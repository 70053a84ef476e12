#pragma once

#include "pipeline/page/PageWarning.h"

#include <string_view>

namespace linealis {

/// Returns a warning for each font of the texts in the content that this machine has no metrically equal face for.
/// Concerns pictures, the screen, and printing; PDF readers bring their own faces.
PageWarnings FontWarnings(std::string_view content);

}  // namespace linealis
