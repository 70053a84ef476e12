#pragma once

#include "pdf/PageRoles.h"
#include "pipeline/page/PageFrame.h"
#include "platform/BinaryStream.h"
#include "platform/Turns.h"

#include <span>
#include <string_view>

namespace linealis {

/// Writes the page in its true size to an open stream as an SVG 1.1 document. Paths keep the numbers of the
/// content. Texts stay texts, in the usual substitutes of their fonts. What has a role is in groups with the
/// classes of the role: "grid.x.major" becomes "grid grid-x grid-x-major". `carried` is a text for the file to
/// carry; empty for none. The caller closes the stream. Exceptions of `turns` pass through.
void WriteSvg(const PaperSize& paper, std::string_view content, std::span<const RoleRange> roles,
              std::string_view carried, BinaryStream& stream, Turns* turns = nullptr);

}  // namespace linealis
