#pragma once

#include "cli/Generate.h"
#include "cli/Table.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// Iterates over the pages of a request: one per source or, with a table, one per row. Reads the rows one at a
/// time, so that a long table takes little memory.
class PageList {
public:
    /// `theRequest` must outlive the object. Reads the whole table once to count and check its rows. Throws
    /// UsageError or WorkError, even for a fault in a later row, so that no page is made in vain.
    PageList(const GenerateRequest& theRequest, const PageFormat& theFormat);

    /// The number of pages.
    std::size_t Count() const { return count; }

    /// Returns the next page, or nothing after the last one. May throw like the constructor if the table has
    /// changed.
    std::optional<PageJob> Next();

    /// Returns to the first page.
    void Rewind();

private:
    PageJob JobOf(const Source& source) const;
    std::optional<PageJob> NextOfTable();
    void CheckAllDiffer();

    const GenerateRequest& request;
    std::vector<std::string> inputs;
    const PageFormat& format;
    ScreenlessPlatform platform;
    std::unique_ptr<PaperWindow> window;  ///< holds the form whose controls the table names
    std::optional<Table> table;
    std::size_t next = 0;  ///< the number of the next page
    std::size_t count = 0;
};

}  // namespace linealis::cli
