#pragma once

#include "cli/Source.h"

#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// What a page is written as.
enum class PageFormat { Pdf, Svg, Png };

struct GenerateRequest {
    std::vector<Source> sources;
    std::vector<Action> actions;
    std::string output;                 ///< a file name, or "-" for standard output; empty with outputDirectory
    std::string outputDirectory;        ///< where each source's page goes, named after it
    std::optional<std::string> table;   ///< of one source: a page for each of its rows
    std::optional<std::string> format;  ///< "pdf", "svg" or "png"; otherwise the ending of the output file tells it
    double dotsPerInch = 300.0;         ///< of a PNG file
    bool isTransparent = false;         ///< a PNG file has no paper
    std::size_t jobs = 1;               ///< pages that are made at a time
    bool view = false;                  ///< open each page in the viewer
    bool check = false;                 ///< make no page, and say what will disappoint on it
    bool asJson = false;                ///< of check
};

/// Makes the pages, or checks them. Of several pages each is tried; throws at the end if one failed.
void Generate(const GenerateRequest& request);

/// Writes a small picture of the page of a settings file, for those who show files by pictures: a PNG file whose
/// longer side has so many pixels.
void MakeThumbnail(const std::string& settingsFile, const std::string& output, int size);

}  // namespace linealis::cli
