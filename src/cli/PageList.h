#pragma once

#include "cli/Generate.h"
#include "cli/Table.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// The pages that a request asks for, one after the other: of each source or, with a table, of each of its rows,
/// which are read as their turn comes.
class PageList {
public:
    /// `theRequest` must outlive this. Throws UsageError or WorkError, also for what a later row would.
    PageList(const GenerateRequest& theRequest, const PageFormat& theFormat);

    /// How many there are.
    std::size_t Count() const { return count; }

    /// The next page; nothing: there is no more.
    std::optional<PageJob> Next();

    /// Goes back to the first page.
    void Rewind();

private:
    PageJob JobOf(const Source& source) const;
    std::optional<PageJob> NextOfTable();
    void CheckAllDiffer();

    const GenerateRequest& request;
    std::vector<std::string> inputs;
    const PageFormat& format;
    ScreenlessPlatform platform;
    std::unique_ptr<PaperWindow> window;  ///< of the table's form
    std::optional<Table> table;
    std::size_t next = 0;  ///< of the sources
    std::size_t count = 0;
};

}  // namespace linealis::cli
