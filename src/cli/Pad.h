#pragma once

#include "cli/Source.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

struct PadRequest {
    /// Their pages take turns. Not read before MakePad: a form on standard input can be read once, by the program
    /// that makes the pad.
    SourceOptions sources;
    std::vector<Action> actions;
    /// What stands behind every page, as SourceNamed takes it. A file is on its own paper, all else on that of the
    /// first page. Nothing: the sheets have one side.
    std::optional<std::string> back;
    std::size_t pages = 50;  ///< on the front sides
    std::size_t up = 1;      ///< pages on a side: 1, 2 or 4
    std::string output;      ///< a file name, or "-" for standard output
};

/// MakePad, or what calls the program that has it.
using PadWork = std::function<void(const PadRequest&)>;

/// Joins one-page files, made as `generate` makes them, to a file of many pages at their true size. A side with two
/// or four pages is as large as they are together, and has marks where it is to be cut. With a back, every other
/// side is one, for a printer that turns the sheets. Throws UsageError or WorkError.
void MakePad(const PadRequest& request);

}  // namespace linealis::cli
