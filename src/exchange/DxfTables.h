#pragma once

#include "exchange/DxfGroups.h"
#include "pdf/PageRoles.h"
#include "pipeline/page/PageFrame.h"

#include <span>
#include <string>

namespace linealis {

/// Millimeters per point: a DXF file has lengths in millimeters.
inline constexpr double dxfUnitsPerPoint = 25.4 / pointsPerInch;

/// Returns the name of the layer for a role: "grid-x-major". What has no role is on layer "0".
std::string DxfLayer(Role role);

/// Writes all that precedes the entities of a page: header, layers of the roles, a text style for each standard
/// font, which has the name of the font, and the empty blocks. Returns the handle of the owner of the entities.
std::string BeginDxf(const PaperSize& paper, std::span<const RoleRange> roles, DxfGroups& groups);

/// Writes all that follows the entities.
void EndDxf(DxfGroups& groups);

}  // namespace linealis
