#pragma once

#include "cli/Pad.h"
#include "cli/PadFile.h"
#include "platform/ScreenlessPlatform.h"

#include <memory>
#include <string>
#include <vector>

namespace linealis::cli {

/// A page of a pad.
struct PadPage {
    std::string name;    ///< of its source or row, for messages
    std::size_t number;  ///< assigned by PadFile::Take
    PaperSize paper;
};

/// The pages of a pad, each once.
struct PadPages {
    std::vector<PadPage> fronts;  ///< of the sources or rows, in their order
    std::vector<PadPage> backs;   ///< one, or none
};

/// Makes the pages of the request and takes them into the file. Prints warnings about them. Throws UsageError or
/// WorkError.
PadPages MakePages(const PadRequest& request, PadFile& file);

}  // namespace linealis::cli
