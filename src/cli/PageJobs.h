#pragma once

#include <atomic>
#include <cstddef>
#include <functional>

namespace linealis::cli {

/// Makes pages, `workers` at a time, and shows on a terminal how many are made. `makePage` is called once for each
/// index below `count`, on another thread, and must not throw; a page under way ends when `stop` has become true. A
/// signal that ends the program stops them all first. Returns false, with pages left out, if `makePage` returned
/// false.
bool MakePages(std::size_t count, std::size_t workers,
               const std::function<bool(std::size_t index, const std::atomic<bool>& stop)>& makePage);

}  // namespace linealis::cli
