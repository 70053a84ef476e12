#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace linealis {

/// What a part of a page is there for: words between dots, from the general to the particular, such as
/// "grid.x.major". A literal. Roles stand beside the content of a page and never in its file: the lights of a
/// window, the classes of an SVG file and whoever else asks what a line is take them from there.
using Role = std::string_view;

/// From this byte of a content on, up to the next range, all that is drawn has the role.
struct RoleRange {
    std::size_t begin;
    Role role;
};

/// The roles of a whole content, in its order. What stands before the first range has none.
using PageRoles = std::vector<RoleRange>;

/// Some roles, each with all that are more particular: "grid.x" is "grid.x.major" too. Empty places mean nothing.
using RoleSet = std::array<Role, 5>;

/// Whether a role is one of the set.
constexpr bool Includes(const RoleSet& set, Role role)
{
    return std::any_of(set.begin(), set.end(), [role](Role general) {
        const bool isNarrower = role.size() > general.size() && role[general.size()] == '.';
        return !general.empty() && role.starts_with(general) && (role.size() == general.size() || isNarrower);
    });
}

}  // namespace linealis
