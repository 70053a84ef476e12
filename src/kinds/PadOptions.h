#pragma once

#include "kinds/PadPlan.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// How to make a pad, as a user or a program says it.
struct PadOptions {
    std::optional<std::size_t> pages =
        {};                   ///< on the fronts; by default one per row of a table, or those of PadLayout
    std::size_t up = 1;       ///< pages on each side: one of possiblePagesUp
    bool hasNumbers = false;  ///< whether the front pages are numbered
    std::optional<std::string> firstDate = {};  ///< YYYY-MM-DD, on the first front page
    bool isBooklet = false;                     ///< fold the sheets into a booklet instead of cutting them
    std::optional<std::string> creep = {};    ///< of a booklet: a length with a unit, see Booklet; by default none
    std::optional<std::string> poster = {};   ///< the name of the paper to put the single page on, in parts
    std::optional<std::string> overlap = {};  ///< of a poster's sheets: a length with a unit; by default 10mm
    std::size_t copies = 1;                   ///< how many times the pad is in the file, from 1
    /// In front of the names of the options in messages, such as "--creep".
    std::string_view dashes = {};
};

/// What goes with the options.
struct PadInputs {
    bool hasTable = false;  ///< whether the fronts are the rows of a table
    bool hasBack = false;
};

/// A page of a pad.
struct PadPage {
    std::string name;  ///< of its source or row, for messages
    PaperSize paper;
};

/// The different pages of a pad, in their order.
struct PadPages {
    std::vector<PadPage> fronts;  ///< at least one
    std::optional<PadPage> back;
};

/// Thrown if options contradict each other, or the pages do not fit together.
struct PadError {
    Message message;
};

/// Checks what can be checked before pages are made. Throws PadError, or UnknownInput for a name or a number that
/// is none of a few possible ones.
void CheckPadOptions(const PadOptions& options, const PadInputs& inputs);

/// Returns the plan of the pad with these pages. Throws as CheckPadOptions does.
PadPlan PlanOf(const PadOptions& options, const PadInputs& inputs, const PadPages& pages);

}  // namespace linealis
