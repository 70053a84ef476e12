#pragma once

#include "pdf/PageRoles.h"
#include "pipeline/page/PageFrame.h"
#include "platform/BinaryStream.h"
#include "platform/Turns.h"

#include <span>
#include <string_view>

namespace linealis {

/// Writes the page to an open stream as an SVG 1.1 document in its true size: the content's paths with its own
/// numbers, its texts as texts in the usual substitutes of their fonts. What has a role is in groups of the classes
/// of that role: "grid.x.major" gives "grid grid-x grid-x-major". `carried` is a text that the file carries; empty:
/// none. The caller closes the stream. Passes on what `turns` throws.
void WriteSvg(const PaperSize& paper, std::string_view content, std::span<const RoleRange> roles,
              std::string_view carried, BinaryStream& stream, Turns* turns = nullptr);

}  // namespace linealis
