#pragma once

#include "pipeline/page/PageFrame.h"

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

/// The name of the paper, whichever way it lies, such as "A4"; empty if it has none. An exact size
/// goes before one that is turned. Ledger and B (USA) are of one size, which is said to be Ledger.
std::string_view NameOfPaper(const PaperSize& size);

}  // namespace linealis
