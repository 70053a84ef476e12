#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace linealis {

/// The purpose of a part of a page, as words separated by dots from the general to the specific, such as
/// "grid.x.major". Must refer to a string literal. Roles accompany the content of a page but never go into its
/// file. The highlights of a window and the classes of an SVG file come from them.
using Role = std::string_view;

/// Everything drawn from byte `begin` of the content up to the next range has the role.
struct RoleRange {
    std::size_t begin;
    Role role;
};

/// The roles of a page in the order of its content. Content before the first range has no role.
using PageRoles = std::vector<RoleRange>;

/// A set of roles. Each entry includes the roles below it: "grid.x" includes "grid.x.major". Empty entries match
/// nothing.
using RoleSet = std::array<Role, 5>;

/// Whether the set includes the role.
constexpr bool Includes(const RoleSet& set, Role role)
{
    return std::any_of(set.begin(), set.end(), [role](Role general) {
        const bool isNarrower = role.size() > general.size() && role[general.size()] == '.';
        return !general.empty() && role.starts_with(general) && (role.size() == general.size() || isNarrower);
    });
}

}  // namespace linealis
