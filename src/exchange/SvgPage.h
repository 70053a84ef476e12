#pragma once

#include "pdf/Geometry.h"
#include "pipeline/page/PageFrame.h"
#include "platform/BinaryStream.h"
#include "platform/Turns.h"

#include <string_view>

namespace linealis {

/// Writes the page to an open stream as an SVG 1.1 document in its true size: the content's paths with its own
/// numbers, its texts as texts in the usual substitutes of their fonts. `carried` is a text that it carries; empty:
/// none. Closing the stream is up to the caller. What `turns` throws passes through.
void WriteSvg(const PaperSize& paper, std::string_view content, std::string_view carried, BinaryStream& stream,
              Turns* turns = nullptr);

}  // namespace linealis
