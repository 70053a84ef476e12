#pragma once

#include "cli/Source.h"
#include "exchange/PageFormats.h"

#include <atomic>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::cli {

/// One page to be made or checked.
struct PageJob {
    const Source* source;
    std::string name;  ///< for messages
    std::vector<Action> actions;
    std::string output;
    const PageFormat* format = &PageFormats().front();
};

/// How pages are made.
struct OutputOptions {
    std::optional<double> dotsPerInch;  ///< of a PNG file; that of WriteOptions if none is given
    bool isTransparent = false;         ///< a PNG file has no paper
    bool view = false;                  ///< open each page in the viewer
    bool refusesLinks = false;  ///< whoever may write to the folder shall not choose another file for a page
};

/// Makes a page, and tells what will disappoint on it. Leaves nothing when `stop` has become true. Throws
/// UsageError or WorkError.
void GeneratePage(const PageJob& job, const OutputOptions& how, const std::atomic<bool>& stop);

/// Prints on standard error what a page had to say while it was made.
void Say(const ScreenlessPlatform& platform);

/// Tells on standard error what will disappoint on a page that was drawn; of a heavy one only what the form tells.
void Warn(const std::string& name, const OpenWindow& open, const DrawnPage& page,
          const ScreenlessPlatform& platform);

/// Tells before the page is printed what will disappoint on it: on standard output, or as JSON at the end of
/// `found`. Returns whether there is anything.
bool CheckPage(const PageJob& job, bool asJson, Json& found);

/// Writes a small picture of the page, for those who show files by pictures: a PNG file whose longer side has so
/// many pixels.
void MakeThumbnail(const Source& source, const std::string& output, int size);

}  // namespace linealis::cli
