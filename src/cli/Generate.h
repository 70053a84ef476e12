#pragma once

#include "cli/PageOutput.h"

#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

struct GenerateRequest {
    OutputOptions how;
    std::vector<Source> sources;
    std::vector<Action> actions;
    std::string output;                 ///< a file name, or "-" for standard output; empty with outputDirectory
    std::string outputDirectory;        ///< where each source's page goes, named after it
    std::optional<std::string> table;   ///< of one source: a page for each of its rows
    std::optional<std::string> format;  ///< "pdf", "svg" or "png"; otherwise the ending of the output file tells it
    std::size_t jobs = 1;               ///< pages that are made at a time
    bool check = false;                 ///< make no page, and say what will disappoint on it
    bool isStrict = false;              ///< of check: what it finds is a failure
    bool asJson = false;                ///< of check
};

/// The files that the pages are made from.
std::vector<std::string> InputsOf(const GenerateRequest& request);

/// Makes the pages, or checks them. Of several pages each is tried; throws at the end if one failed. Returns
/// whether a strict check has found anything.
bool Generate(const GenerateRequest& request);

}  // namespace linealis::cli
