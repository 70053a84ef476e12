#pragma once

#include "cli/Source.h"
#include "kinds/PadSheet.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// The arguments of the pad command.
struct PadRequest {
    /// The sources whose pages alternate. MakePad reads them, not the caller: a form on standard input can be read
    /// only once, and the program that makes the pad is a different process.
    SourceOptions sources;
    std::vector<Action> actions;
    /// The page on every back, as SourceNamed takes it. A file keeps its own paper; a kind or preset gets the paper
    /// of the first page. Without a value, the sheets are printed on one side.
    std::optional<std::string> back;
    std::optional<std::string> table;  ///< a CSV file; the single source makes one front page per row of it
    std::optional<std::size_t> pages;  ///< on the fronts; by default one per row of a table, or those of PadLayout
    PadLayout layout;                  ///< except for the number and the size of its pages
    std::optional<std::string> firstDate;  ///< YYYY-MM-DD, on the first front page
    bool isBooklet = false;                ///< fold the sheets into a booklet instead of cutting them
    std::optional<std::string> creep;      ///< of a booklet: a length with a unit, see Booklet; by default none
    std::optional<std::string> poster;     ///< the name of the paper to put the single page on, in parts
    std::optional<std::string> overlap;    ///< of a poster's sheets: a length with a unit; by default 10mm
    std::size_t copies = 1;                ///< how many times the pad is in the file, from 1
    std::string output;                    ///< a file name, or "-" for standard output
};

/// Makes a pad: MakePad, or a function that calls the program that contains it.
using PadWork = std::function<void(const PadRequest&)>;

/// Joins pages, each made as `generate` makes it, into one PDF file at their true size. A side with two or four
/// pages is as large as they are together, and has cut marks. With a back, and as a booklet, sides alternate
/// between front and back, for a printer that prints on both sides. Throws UsageError if the request makes no sense
/// or the pages do not fit together, WorkError if a page or the file cannot be made.
void MakePad(const PadRequest& request);

}  // namespace linealis::cli
