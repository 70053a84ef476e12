#pragma once

#include "pipeline/page/PageWarning.h"

#include <string_view>

namespace linealis {

/// Names each font of the content's texts that this machine cannot show in its own widths: another face stands in
/// for it, or there is none. Concerns pictures, screens and printers; readers of PDF files bring these fonts along.
PageWarnings FontWarnings(std::string_view content);

}  // namespace linealis
