#pragma once

#include "cli/Source.h"
#include "kinds/PadOptions.h"

#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// The arguments of the pad command.
struct PadRequest {
    std::vector<Source> sources;  ///< whose pages alternate
    std::vector<Action> actions;
    /// The page on every back, as SourceNamed takes it. A file keeps its own paper; a kind or preset gets the paper
    /// of the first page. Without a value, the sheets are printed on one side.
    std::optional<std::string> back;
    std::optional<std::string> table;  ///< a CSV file; the single source makes one front page per row of it
    PadOptions options{.dashes = "--"};
    std::string output;   ///< a file name, or "-" for standard output
    bool asJson = false;  ///< print what was made as JSON
};

/// Joins pages, each made as `generate` makes it, into one PDF file at their true size. A side with two or four
/// pages is as large as they are together, and has cut marks. With a back, and as a booklet, sides alternate
/// between front and back, for a printer that prints on both sides. Says what there is to say about the pages.
/// Throws UsageError if the request makes no sense or the pages do not fit together, WorkError if a page or the
/// file cannot be made.
void MakePad(const PadRequest& request);

}  // namespace linealis::cli
