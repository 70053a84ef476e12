#pragma once

#include "Measures.h"

#include <string>

namespace linealis::bench {

/// Returns all measurements in Markdown, followed by the targets and whether this run meets them. Leaves out what
/// was filtered out of the run or could not be built.
std::string MakeTable(const Results& results);

}  // namespace linealis::bench
