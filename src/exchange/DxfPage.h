#pragma once

#include "pdf/PageRoles.h"
#include "pipeline/page/PageFrame.h"
#include "platform/BinaryStream.h"
#include "platform/Turns.h"

#include <span>
#include <string_view>

namespace linealis {

/// Writes the page in its true size to an open stream as a DXF file of release 2000 (AC1015), which programs for
/// design and for cutters read. Lengths are in millimeters from the lower left corner of the paper. Each part of a
/// stroke is one entity: a LINE, a CIRCLE (also for a dot), or an LWPOLYLINE. Circular arcs stay arcs; other curves
/// become lines that are at most 0.005 mm off. Texts are TEXT entities, fills solid HATCH entities. What has a role
/// is on the layer of that role: "grid.x.major" is on "grid-x-major", everything else on "0". Colors are the
/// nearest ones of the color index, and line weights the nearest standard ones. Dashed lines, which no kind draws,
/// become solid. The caller closes the stream. Exceptions of `turns` pass through.
void WriteDxf(const PaperSize& paper, std::string_view content, std::span<const RoleRange> roles,
              BinaryStream& stream, Turns* turns = nullptr);

}  // namespace linealis
