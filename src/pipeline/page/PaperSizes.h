#pragma once

#include "pipeline/page/PageFrame.h"

#include <span>
#include <string>
#include <string_view>

namespace linealis {

/// A standard paper size.
struct NamedPaper {
    std::string_view name;
    PaperSize size;
};

/// The standard papers in the order of PopupPaperSize. Its last item, Custom, is not included.
std::span<const NamedPaper> NamedPapers();

/// Returns the name of the paper in either orientation, such as "A4", or an empty text if it has none. An exact
/// match takes precedence over a rotated one. Ledger and B (USA) have the same size; the result is Ledger.
std::string_view NameOfPaper(const PaperSize& size);

}  // namespace linealis
