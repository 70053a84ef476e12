#pragma once

#include "Measures.h"

#include <string>

namespace linealis::bench {

/// All figures in Markdown, and at the end the targets and whether this run meets them. What was filtered out of
/// the run or could not be built is left out.
std::string MakeTable(const Results& results);

}  // namespace linealis::bench
