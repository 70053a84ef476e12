#pragma once

#include "text/Message.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// A warning: something that will cause a problem on paper, or a setting that has no effect on the page.
struct PageWarning {
    std::string_view id;  ///< for programs: identifies the type of warning
    std::string control;  ///< the name of the control that causes it; empty if none does
    Message text;         ///< for users
};

using PageWarnings = std::vector<PageWarning>;

}  // namespace linealis
