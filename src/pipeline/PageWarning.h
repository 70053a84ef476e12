#pragma once

#include "pipeline/Form.h"

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

/// Warns if lines are at least as wide as the distance between them, in points.
void WarnOfInk(const Form& form, const TextField& weight, double distance, PageWarnings& warnings);

}  // namespace linealis
