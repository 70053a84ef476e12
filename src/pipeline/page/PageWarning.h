#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// Something on a page that will disappoint on paper, or that the page does not do although the form says it.
struct PageWarning {
    std::string_view id;  ///< for programs: the same for the same sort of warning
    std::string control;  ///< the name of the control that it comes from; empty if it is none
    std::string text;     ///< for people
};

using PageWarnings = std::vector<PageWarning>;

}  // namespace linealis
