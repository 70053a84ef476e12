#pragma once

#include "pipeline/Controls.h"

#include <string_view>
#include <vector>

namespace linealis {

/// What the margin fields hold when a form opens, in the current units.
struct MarginTexts {
    std::string_view top = "0.5";
    std::string_view bottom = "0.5";
    std::string_view left = "0.5";
    std::string_view right = "0.5";
};

/// A kind's own controls among those that every form has, each group in its place. Within a group the common
/// controls come first.
ControlTable WithCommonControls(const ControlTable& own, const MarginTexts& margins);

/// The note under the file name. Its name differs from window to window.
Control shiftClickNote(std::string_view name);

/// The fonts of a font popup. An item's index plus 1 is the number of its font on the page.
const std::vector<std::string_view>& FontNames();

}  // namespace linealis
