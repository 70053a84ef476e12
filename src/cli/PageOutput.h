#pragma once

#include "cli/Source.h"
#include "exchange/PageFormats.h"

#include <atomic>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::cli {

/// One page to make or check.
struct PageJob {
    const Source* source;  ///< must outlive the job
    std::string name;      ///< for messages
    std::vector<Action> actions;
    std::string output;
    const PageFormat* format = &PageFormats().front();
    std::size_t number = 0;  ///< of the page among all pages, from 0
};

/// How to write pages.
struct OutputOptions {
    std::optional<double> dotsPerInch;  ///< of a PNG file; default: that of WriteOptions
    bool isTransparent = false;         ///< a PNG file without the white of the paper
    std::optional<Screen> screen;       ///< of the device that a picture is for
    bool fitsScreen = false;            ///< scale the page to the screen, instead of giving it the screen's paper
    bool view = false;                  ///< open each page in the viewer
    /// Do not write through links, so that others who may write to the folder cannot redirect a page.
    bool refusesLinks = false;
};

/// Makes a page. Prints warnings about it or, if `answer` is not null, writes there what was made, with the
/// warnings. Returns early, and leaves no file, when `stop` becomes true. Throws UsageError or WorkError.
void GeneratePage(const PageJob& job, const OutputOptions& how, const std::atomic<bool>& stop, Json* answer);

/// Returns the warnings about a drawn page. Checks the content only of a light page, to save time; of a heavy one
/// it returns only the warnings of the form. Leaves out what concerns printers alone if `isForScreen`.
PageWarnings WarningsOfJob(const OpenWindow& open, const DrawnPage& page, const ScreenlessPlatform& platform,
                           bool isForScreen = false);

/// Reports the printing problems of a page: prints them on standard output or, with `asJson`, appends them to
/// `found`. Returns whether there are any. Throws UsageError or WorkError if the page cannot be drawn.
bool CheckPage(const PageJob& job, const OutputOptions& how, bool asJson, Json& found);

/// Writes a small picture of the page for file managers: a PNG file whose longer side has `size` pixels. Stops
/// painting after 0.75 s of processor time and writes what it has. Prints an answer if `asJson`. Throws UsageError
/// or WorkError.
void MakeThumbnail(const Source& source, const std::string& output, int size, bool asJson);

}  // namespace linealis::cli
