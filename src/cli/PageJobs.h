#pragma once

#include "cli/PageList.h"

#include <atomic>
#include <cstddef>
#include <functional>

namespace linealis::cli {

/// Makes the pages with up to `workers` threads, fewer if the system does not provide them, and shows the progress
/// on a terminal. Prints complaints in the order of the pages.
///
/// `makePage` is called on several threads at once and must end the page early when `stop` becomes true. That
/// happens when a page throws, or when a signal to end the program arrives; the signal takes effect after all
/// workers have stopped. Rethrows the exception of the first page, in their order, that has thrown one.
void MakePages(PageList& pages, std::size_t workers,
               const std::function<void(const PageJob& job, const std::atomic<bool>& stop)>& makePage);

}  // namespace linealis::cli
