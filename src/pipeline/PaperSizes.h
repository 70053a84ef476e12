#pragma once

#include "pipeline/PageFrame.h"

#include <span>
#include <string>
#include <string_view>

namespace linealis {

/// A paper that is sold under a name.
struct NamedPaper {
    std::string_view name;
    PaperSize size;
};

/// In the order of PopupPaperSize, whose last item, Custom, is none of them.
std::span<const NamedPaper> NamedPapers();

/// The name of the paper, whichever way it lies, such as "A4"; empty if it has none. Either way it may lie: an
/// exact size goes before one that is turned.
std::string_view NameOfPaper(const PaperSize& size);

}  // namespace linealis
