#pragma once

#include "cli/PageList.h"

#include <atomic>
#include <cstddef>
#include <functional>

namespace linealis::cli {

/// Makes pages, `workers` at a time or as many as there are threads for, and shows on a terminal how many are made.
/// What is complained of comes in the order of the pages. A page under way ends when `stop` has become true. A
/// signal that ends the program stops them all first. The first page that throws ends all; what it throws is thrown
/// on.
void MakePages(PageList& pages, std::size_t workers,
               const std::function<void(const PageJob& job, const std::atomic<bool>& stop)>& makePage);

}  // namespace linealis::cli
