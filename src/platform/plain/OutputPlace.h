#pragma once

#include "platform/OutputFile.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace linealis {

/// Where an output file goes, on systems without the file calls of Linux.
struct OutputPlace {
    std::filesystem::path path;    ///< the end of a chain of links
    std::filesystem::path hidden;  ///< a free name beside it, for the file until it is complete; empty for a file
                                   ///< that is written directly, as it is not a regular one
    bool isReplaced = false;       ///< whether there is a file now
};

/// Returns the place of a path. Returns nothing and sets `error` if the target does not allow what is there.
std::optional<OutputPlace> PlaceOf(const std::filesystem::path& path, OutputFile::Target target,
                                   std::error_code& error);

}  // namespace linealis
