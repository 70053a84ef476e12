#pragma once

#include "cli/PageOutput.h"

#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// The arguments of the generate command.
struct GenerateRequest {
    OutputOptions how;
    std::vector<Source> sources;
    std::vector<Action> actions;
    std::string output;                 ///< a file name, or "-" for standard output; empty with outputDirectory
    std::string outputDirectory;        ///< the folder for pages that are named after their sources or rows
    std::optional<std::string> table;   ///< a CSV file; the single source makes one page per row of it
    std::optional<std::string> device;  ///< as ScreenNamed takes it
    std::optional<std::string> format;  ///< the name of a PageFormat; by default, the extension of `output` decides
    std::size_t jobs = 1;               ///< the number of pages to make at the same time
    bool check = false;                 ///< report printing problems instead of making pages
    bool isStrict = false;              ///< with `check`: a problem counts as a failure
    bool asJson = false;                ///< print what was made, or found, as JSON
};

/// Returns the files that the pages are made from.
std::vector<std::string> InputsOf(const GenerateRequest& request);

/// Makes the pages, or checks them. Returns whether a strict check has found anything. Throws UsageError, at once,
/// if the request makes no sense. If a single page fails, throws WorkError. Of several pages, a failed one does not
/// keep the others from being made: reports each failure, and throws FailureSaid at the end. So does a single page
/// with `asJson`, whose answer has the failure.
bool Generate(const GenerateRequest& request);

}  // namespace linealis::cli
