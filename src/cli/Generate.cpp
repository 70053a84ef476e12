#include "cli/Generate.h"

#include "cli/Commands.h"
#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "cli/PageJobs.h"
#include "cli/PageList.h"
#include "cli/Remarks.h"
#include "exchange/PageFormats.h"
#include "platform/FilePath.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

namespace linealis::cli {

namespace {

namespace fs = std::filesystem;

/// Returns the names of all formats, each after `before`.
std::vector<std::string> FormatNames(const char* before)
{
    std::vector<std::string> names;
    for (const PageFormat& format : PageFormats()) {
        names.push_back(before + std::string(format.name));
    }
    return names;
}

/// Returns the format of a file whose name says nothing about it: of a device, pixels.
const PageFormat& FormatWithoutName(const GenerateRequest& request)
{
    const std::span<const PageFormat> formats = PageFormats();
    const auto pixels =
        std::find_if(formats.begin(), formats.end(), [](const PageFormat& format) { return format.hasPixels; });
    return request.device ? *pixels : formats.front();
}

/// Returns the format that --format names or, without it, the extension of the output file. FormatWithoutName if it
/// has no extension, and for files below /dev and /proc. Throws UsageError if the format is unknown.
const PageFormat& FormatOf(const GenerateRequest& request)
{
    if (request.format) {
        if (const PageFormat* const format = FindPageFormat(*request.format)) {
            return *format;
        }
        throw Unknown("format", *request.format, FormatNames(""));
    }
    const std::string ending = EndingOf(request.output);
    if (ending.empty() || request.output.starts_with("/dev/") || request.output.starts_with("/proc/")) {
        return FormatWithoutName(request);
    }
    if (const PageFormat* const format = FindPageFormat(ending.substr(1))) {
        return *format;
    }
    std::vector<std::string> possible = FormatNames(".");
    possible.emplace_back("none, which is a PDF file");
    throw Unknown("ending of -o", ending, possible);
}

/// Throws UsageError if the outputs do not fit the request, or if an output is an input.
void CheckRequest(const GenerateRequest& request)
{
    const bool toFile = !request.output.empty();
    if (toFile == !request.outputDirectory.empty()) {
        throw UsageError{"use either -o FILE or --output-dir DIR, not both"};
    }
    if (toFile && request.table) {
        throw UsageError{"--table makes a page for each row; use --output-dir DIR instead of -o"};
    }
    if (toFile && request.sources.size() > 1) {
        throw UsageError{"-o " + request.output + " takes one page, but " + std::to_string(request.sources.size()) +
                         " are asked for; --output-dir DIR takes any number"};
    }
    CheckRoomForAnswer(request.asJson, request.output);
    // Before FormatOf, whose message about the extension of an input would miss the point.
    CheckIsNoInput(request.output, InputsOf(request));
    if (request.how.view && request.output == "-") {
        throw UsageError{"--view needs a file, not standard output"};
    }
}

/// Returns the options with the screen of --device. Throws UsageError if the device is unknown, or does not fit the
/// request.
OutputOptions WithScreen(const GenerateRequest& request)
{
    OutputOptions how = request.how;
    if (!request.device) {
        if (how.fitsScreen) {
            throw UsageError{"--fit scales the page to a screen; add --device DEVICE"};
        }
        return how;
    }
    if (how.dotsPerInch) {
        throw UsageError{"use either --device or --dpi, not both"};
    }
    how.screen = ScreenNamed(*request.device);
    if (!how.screen) {
        std::vector<std::string> possible = {"numbers such as 1404x1872@226"};
        for (const Device& device : Devices()) {
            possible.emplace_back(device.name);
        }
        throw Unknown("device", *request.device, possible);
    }
    if (!FormatOf(request).hasPixels) {
        throw UsageError{"--device makes a " + FormatTitles(&PageFormat::hasPixels) + " file, not a " +
                         std::string(FormatOf(request).title) + " file"};
    }
    return how;
}

void CheckSources(const GenerateRequest& request)
{
    if (request.table && request.sources.size() > 1) {
        throw UsageError{"--table takes one source, but " + std::to_string(request.sources.size()) + " are given"};
    }
}

/// Warns about options that have no effect on this request.
void WarnOfIdleOptions(const GenerateRequest& request)
{
    const auto warnIf = [](bool isIdle, const char* option, const std::string& where) {
        if (isIdle) {
            Complain(std::string("warning: ") + option + " has no effect " + where);
        }
    };
    const std::string noPicture = "on a page that is not a " + FormatTitles(&PageFormat::hasPixels) + " file";
    const bool isPicture = !request.check && FormatOf(request).hasPixels;
    warnIf(request.isStrict && !request.check, "--strict", "without --check");
    warnIf(request.how.dotsPerInch && !isPicture, "--dpi", noPicture);
    warnIf(request.how.isTransparent && !isPicture, "--transparent", noPicture);
}

/// Reports the printing problems of all pages. Returns whether a strict check has found any.
bool CheckPages(const GenerateRequest& request, const OutputOptions& how)
{
    if (!request.output.empty() || !request.outputDirectory.empty() || request.how.view) {
        throw UsageError{"--check writes no page; leave out -o, --output-dir and --view"};
    }
    Json found = Json::array();
    bool hasFound = false;
    PageList pages(request, FormatOf(request));
    while (const std::optional<PageJob> job = pages.Next()) {
        hasFound = CheckPage(*job, how, request.asJson, found) || hasFound;
    }
    if (request.asJson) {
        Print(found);
    }
    return hasFound && request.isStrict;
}

/// Makes one page. If it belongs to a row of a table, a UsageError names the row.
void GenerateRow(const PageJob& job, const GenerateRequest& request, const OutputOptions& how,
                 const std::atomic<bool>& stop, Json* answer)
{
    try {
        GeneratePage(job, how, stop, answer);
    } catch (const UsageError& error) {
        throw request.table ? UsageError{job.name + ": " + error.message} : error;
    }
}

/// Makes all pages. A WorkError is reported, and the other pages are still made; a UsageError ends everything.
/// Prints what was made as JSON if the request asks for that.
void GeneratePages(PageList& pages, const GenerateRequest& request, const OutputOptions& how)
{
    std::atomic<bool> hasFailed = false;
    Json answers = Json::array();
    answers.get_ref<Json::array_t&>().resize(request.asJson ? pages.Count() : 0);
    MakePages(pages, request.jobs, [&](const PageJob& job, const std::atomic<bool>& stop) {
        Json* const answer = request.asJson ? &answers[job.number] : nullptr;
        try {
            GenerateRow(job, request, how, stop, answer);
        } catch (const WorkError& error) {
            Complain(error.message);
            if (answer != nullptr) {
                (*answer)["error"] = error.message;
            }
            hasFailed = true;
        }
    });
    if (request.asJson) {
        Print(answers);
    }
    if (hasFailed) {
        throw FailureSaid{};
    }
}

/// Creates the folder for the pages, and its parents, if they are missing.
void MakeFolder(const std::string& folder)
{
    std::error_code error;
    fs::create_directories(PathOf(folder), error);
    if (error) {
        throw WorkError{folder + ": " + error.message()};
    }
}

}  // namespace

std::vector<std::string> InputsOf(const GenerateRequest& request)
{
    std::vector<std::string> inputs = InputsOf(request.sources, request.actions);
    if (request.table) {
        inputs.push_back(*request.table);
    }
    return inputs;
}

bool Generate(const GenerateRequest& request)
{
    CheckSources(request);
    if (request.check) {
        WarnOfIdleOptions(request);
        return CheckPages(request, WithScreen(request));
    }
    CheckRequest(request);
    WarnOfIdleOptions(request);
    OutputOptions how = WithScreen(request);
    PageList pages(request, FormatOf(request));
    if (!request.outputDirectory.empty()) {
        how.refusesLinks = true;
        MakeFolder(request.outputDirectory);
    }
    if (pages.Count() == 1 && !request.asJson) {
        GenerateRow(*pages.Next(), request, how, false, nullptr);
    } else {
        GeneratePages(pages, request, how);
    }
    return false;
}

}  // namespace linealis::cli
