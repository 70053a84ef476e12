#pragma once

#include "pdf/Geometry.h"
#include "pdf/PageRoles.h"
#include "platform/Turns.h"

#include <span>
#include <string_view>

namespace linealis {

/// The role of what a page shows at a point, in points from the lower left corner: of a text there, or else of the
/// nearest line within `reach` points. Empty if there is nothing. The background does not count. Each operator is a
/// round of `turns`; passes on what they throw.
Role RoleAt(std::string_view content, std::span<const RoleRange> roles, const Point& point, double reach,
            Turns& turns);

}  // namespace linealis
