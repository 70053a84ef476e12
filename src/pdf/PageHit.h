#pragma once

#include "pdf/Geometry.h"
#include "pdf/PageRoles.h"
#include "platform/Turns.h"

#include <span>
#include <string_view>
#include <vector>

namespace linealis {

/// The role of what a page shows at a point, in points from the lower left corner: of a text there, or else of the
/// nearest line within `reach` points. Empty if there is nothing. The background does not count. Each operator is a
/// round of `turns`; passes on what they throw.
Role RoleAt(std::string_view content, std::span<const RoleRange> roles, const Point& point, double reach,
            Turns& turns);

/// A text of a page and the area that it covers, in points from the lower left corner.
struct TextArea {
    Role role;
    Point start;      ///< where its base line begins, before the scale of the page
    Point lowerLeft;  ///< of the area
    Point upperRight;
};

/// Returns the texts of a page that have one of the roles, in page order.
std::vector<TextArea> TextAreas(std::string_view content, std::span<const RoleRange> pageRoles,
                                const RoleSet& roles);

}  // namespace linealis
