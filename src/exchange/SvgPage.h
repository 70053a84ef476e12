#pragma once

#include "pdf/Geometry.h"
#include "pipeline/PageFrame.h"

#include <string>
#include <string_view>

namespace linealis {

/// The page as an SVG 1.1 document in its true size: the content's paths with its own numbers, its texts as texts
/// in the usual substitutes of their fonts. `carried` is a text that it carries; empty: none.
std::string SvgOf(const PaperSize& paper, std::string_view content, std::string_view carried);

}  // namespace linealis
