#include "cli/Generate.h"

#include "app/PageCheck.h"
#include "cli/Commands.h"
#include "cli/Errors.h"
#include "cli/PageJobs.h"
#include "cli/Table.h"
#include "exchange/PngPage.h"
#include "exchange/SvgPage.h"
#include "platform/Process.h"
#include "platform/ScreenlessPlatform.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <exception>
#include <iostream>
#include <set>

namespace linealis::cli {

namespace {

namespace fs = std::filesystem;

/// One page to be made or checked.
struct PageJob {
    const Source* source;
    std::string name;  ///< for messages
    std::vector<Action> actions;
    std::string output;
    PageFormat format = PageFormat::Pdf;
};

struct FormatName {
    std::string_view name;
    PageFormat format;
};

constexpr std::array formatNames = {FormatName{"pdf", PageFormat::Pdf}, FormatName{"svg", PageFormat::Svg},
                                    FormatName{"png", PageFormat::Png}};

std::optional<PageFormat> FormatNamed(std::string name)
{
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    for (const FormatName& known : formatNames) {
        if (known.name == name) {
            return known.format;
        }
    }
    return std::nullopt;
}

std::string_view NameOf(PageFormat format)
{
    return formatNames.at(static_cast<std::size_t>(format)).name;
}

/// What --format says, or else the ending of the output file. One without an ending is a PDF file.
PageFormat FormatOf(const GenerateRequest& request)
{
    if (request.format) {
        if (const auto format = FormatNamed(*request.format)) {
            return *format;
        }
        throw Unknown("format", *request.format, {"pdf", "svg", "png"});
    }
    const std::string ending = fs::path(request.output).extension().string();
    if (ending.size() <= 1 || request.output.starts_with("/dev/") || request.output.starts_with("/proc/")) {
        return PageFormat::Pdf;
    }
    if (const auto format = FormatNamed(ending.substr(1))) {
        return *format;
    }
    throw Unknown("ending of -o", ending, {".pdf", ".svg", ".png", "none, which is a PDF file"});
}

void LaunchViewer(const FolderItem& file)
{
    const std::string program = "xdg-open", path = file.Path().string();
    if (const std::error_code error = StartProgram(program, path)) {
        throw WorkError{path + ": the page is made, but the viewer could not be started: " + program + ": " +
                        error.message()};
    }
}

/// Of a page that is made, so much content is looked at for warnings: it takes no time. Bytes.
constexpr std::size_t longestChecked = std::size_t{256} << 10U;

PageWarnings WarningsOf(const PaperWindow& window, std::string_view content, const ScreenlessPlatform& platform)
{
    const PageFrame frame = window.ReadPage().frame;
    PageWarnings warnings = FormWarnings(window.form, frame);
    for (const PageWarnings& more :
         {ContentWarnings(frame, content), MarkerWarnings(window.form, platform.openAnswer)}) {
        warnings.insert(warnings.end(), more.begin(), more.end());
    }
    return warnings;
}

void Say(const ScreenlessPlatform& platform)
{
    for (const std::vector<std::string>* const said : {&platform.messages, &platform.notes}) {
        std::for_each(said->begin(), said->end(), Complain);
    }
}

void Warn(const PageJob& job, const PaperWindow& window, std::string_view content,
          const ScreenlessPlatform& platform)
{
    if (content.size() <= longestChecked) {
        for (const PageWarning& warning : WarningsOf(window, content, platform)) {
            Complain("warning: " + job.name + ": " + warning.text);
        }
    }
}

std::string DrawPage(const std::string& name, PaperWindow& window)
{
    try {
        return window.DrawPage();
    } catch (const PageGivenUp& givenUp) {
        throw WorkError{name + ": " + givenUp.reason};
    }
}

/// The file that a page goes to. Whoever may write to the folder shall not choose another for it.
FolderItem FileOf(const PageJob& job, const GenerateRequest& request)
{
    const FolderItem file = OutputFile(job.output);
    return request.output.empty() ? file.WithoutLinks() : file;
}

/// One page by the road of the Generate button with the shift key held down: a file that the settings brought
/// back is forgotten, and the save dialog answers with the output file.
void GeneratePdf(const PageJob& job, const GenerateRequest& request, const std::atomic<bool>& stop)
{
    ScreenlessPlatform platform;
    platform.onYield = [&stop] {
        if (stop) {
            throw PageStopped{};
        }
    };
    platform.shiftKey = true;
    platform.saveAnswer = FileOf(job, request);
    const OpenWindow open = Open(*job.source, job.actions, platform);
    open.window->PushButtonGenerate_Action();
    if (open.window->LastPage() == PageEnd::Stopped) {
        return;
    }
    Say(platform);
    Warn(job, *open.window, open.window->Pdf().Stream(), platform);
    if (!platform.fileErrors.empty()) {
        throw WorkError{job.output + ": " + platform.fileErrors.front().reason};
    }
    if (request.view) {
        LaunchViewer(platform.saveAnswer);
    }
}

void CheckPixels(const PaperSize& paper, const GenerateRequest& request, const std::string& name)
{
    const PixelSize size = PixelsOf(paper, request.dotsPerInch);
    if (size.width > mostPixels || size.height > mostPixels || size.width * size.height > mostPixels) {
        throw UsageError{name + ": a picture of " + std::to_string(size.width) + " by " +
                         std::to_string(size.height) + " pixels is too large; --dpi " +
                         std::to_string(HighestDotsPerInch(paper)) + " would fit"};
    }
}

/// The same content as that of the PDF file, in another format. The picture carries its form.
void GeneratePicture(const PageJob& job, const GenerateRequest& request, const std::atomic<bool>& stop)
{
    ScreenlessPlatform platform;
    const auto stopIfAsked = [&stop] {
        if (stop) {
            throw PageStopped{};
        }
    };
    platform.onYield = stopIfAsked;
    const OpenWindow open = Open(*job.source, job.actions, platform);
    const PageFrame frame = open.window->ReadPage().frame;
    const PaperSize paper{frame.paperWidth, frame.paperHeight};
    if (job.format == PageFormat::Png) {
        CheckPixels(paper, request, job.name);
    }
    const std::string content = DrawPage(job.name, *open.window);
    Say(platform);
    Warn(job, *open.window, content, platform);
    const std::string carried = CarriedForm(*open.kind, open.window->form);
    const FolderItem file = FileOf(job, request);
    BinaryStream stream = file.CreateBinaryFile();
    if (stream.IsOpen()) {
        if (job.format == PageFormat::Png) {
            WritePng(paper, content, {request.dotsPerInch, request.isTransparent, 0.0, carried, stopIfAsked},
                     stream);
        } else {
            stream.Write(SvgOf(paper, content, carried));
        }
        stream.Close();
    }
    if (stream.Error()) {
        throw WorkError{job.output + ": " + stream.Error().message()};
    }
    if (request.view) {
        LaunchViewer(file);
    }
}

void GeneratePage(const PageJob& job, const GenerateRequest& request, const std::atomic<bool>& stop)
{
    if (job.format == PageFormat::Pdf) {
        GeneratePdf(job, request, stop);
        return;
    }
    try {
        GeneratePicture(job, request, stop);
    } catch (const PageStopped&) {  // the program ends
    }
}

/// Tells before the page is printed what will disappoint on it.
void CheckPage(const PageJob& job, const GenerateRequest& request, Json& found)
{
    ScreenlessPlatform platform;
    const OpenWindow open = Open(*job.source, job.actions, platform);
    const std::string content = DrawPage(job.name, *open.window);
    Say(platform);
    for (const PageWarning& warning : WarningsOf(*open.window, content, platform)) {
        if (request.asJson) {
            found.push_back(
                {{"source", job.name}, {"id", warning.id}, {"control", warning.control}, {"text", warning.text}});
        } else {
            std::cout << job.name << ": " << warning.text << '\n';
        }
    }
}

/// The page of a source alone, in the directory or, without one, in the output file.
PageJob JobOf(const Source& source, const GenerateRequest& request)
{
    const PageFormat format = FormatOf(request);
    if (request.outputDirectory.empty()) {
        return {&source, source.name, request.actions, request.output, format};
    }
    const std::string stem = source.preset != nullptr ? source.name : fs::path(source.name).stem().string();
    const std::string name = stem + "." + std::string(NameOf(format));
    return {&source, source.name, request.actions, (fs::path(request.outputDirectory) / name).string(), format};
}

/// A page for each row of the table. Where it gives no name, the page has that of the source and the row's number.
std::vector<PageJob> JobsOfTable(const GenerateRequest& request)
{
    std::vector<PageJob> jobs;
    const std::vector<TableRow> rows = ReadTable(*request.table);
    const std::size_t digits = std::to_string(rows.size()).size();
    for (const TableRow& row : rows) {
        PageJob job = JobOf(request.sources.front(), request);
        job.name = *request.table + ", row " + std::to_string(row.number);
        job.actions.insert(job.actions.end(), row.actions.begin(), row.actions.end());
        const std::string number = std::to_string(row.number);
        const fs::path output(job.output);
        const std::string name =
            row.fileName.empty() ? output.stem().string() + "-" + std::string(digits - number.size(), '0') + number
                                 : row.fileName;
        job.output = (output.parent_path() / (name + output.extension().string())).string();
        jobs.push_back(std::move(job));
    }
    return jobs;
}

std::vector<PageJob> JobsOf(const GenerateRequest& request)
{
    if (request.table) {
        return JobsOfTable(request);
    }
    std::vector<PageJob> jobs;
    for (const Source& source : request.sources) {
        jobs.push_back(JobOf(source, request));
    }
    return jobs;
}

/// Two pages with the same name would lose one of them.
void CheckAllDiffer(const std::vector<PageJob>& jobs)
{
    std::set<std::string> taken;
    for (const PageJob& job : jobs) {
        if (!taken.insert(job.output).second) {
            throw UsageError{"two pages would be written to " + job.output};
        }
    }
}

/// The page shall not take the place of what it is made from.
void CheckIsNoInput(const std::string& output, const GenerateRequest& request)
{
    std::vector<std::string> inputs;
    for (const Source& source : request.sources) {
        if (IsFile(source)) {
            inputs.push_back(source.name);
        }
        if (source.form) {
            inputs.push_back(source.form->name);
        }
    }
    for (const Action& action : request.actions) {
        if (action.kind == Action::Kind::Load || action.kind == Action::Kind::Markers) {
            inputs.push_back(action.argument);
        }
    }
    for (const std::string& input : inputs) {
        std::error_code oneIsMissing;
        if (fs::equivalent(input, output, oneIsMissing)) {
            throw UsageError{"the page would replace " + input + ", which it is made from"};
        }
    }
}

void CheckRequest(const GenerateRequest& request)
{
    const bool toFile = !request.output.empty();
    if (toFile == !request.outputDirectory.empty()) {
        throw UsageError{"generate takes either -o FILE or --output-dir DIR"};
    }
    if (toFile && request.table) {
        throw UsageError{"--table makes a page for each row, and goes with --output-dir DIR, not with -o"};
    }
    if (toFile && request.sources.size() > 1) {
        throw UsageError{"-o " + request.output + " takes one page, but " + std::to_string(request.sources.size()) +
                         " are asked for; --output-dir DIR takes any number"};
    }
    CheckIsNoInput(request.output, request);
    if (request.view && request.output == "-") {
        throw UsageError{"--view needs a file, not standard output"};
    }
}

void CheckSources(const GenerateRequest& request)
{
    if (request.table && request.sources.size() > 1) {
        throw UsageError{"--table takes one source, but " + std::to_string(request.sources.size()) + " are given"};
    }
    for (const Source& source : request.sources) {
        KindOf(source);
    }
}

void CheckPages(const GenerateRequest& request)
{
    if (!request.output.empty() || !request.outputDirectory.empty() || request.view) {
        throw UsageError{"--check writes no page, and goes without -o, --output-dir and --view"};
    }
    Json found = Json::array();
    for (const PageJob& job : JobsOf(request)) {
        CheckPage(job, request, found);
    }
    if (request.asJson) {
        Print(found);
    }
}

/// Names the row that a wrong command line comes from, if it comes from one.
UsageError InRow(const UsageError& error, const PageJob& job, const GenerateRequest& request)
{
    return request.table ? UsageError{job.name + ": " + error.message} : error;
}

/// Each page is tried after another has failed in its work; a command line that makes no sense ends all.
void GeneratePages(const std::vector<PageJob>& jobs, const GenerateRequest& request)
{
    std::vector<std::string> failures(jobs.size());
    std::exception_ptr wrong;
    std::mutex mutex;
    MakePages(jobs.size(), request.jobs, [&](std::size_t i, const std::atomic<bool>& stop) {
        try {
            GeneratePage(jobs[i], request, stop);
            return true;
        } catch (const WorkError& error) {
            failures[i] = error.message;
            return true;
        } catch (const UsageError& error) {
            const std::lock_guard lock(mutex);
            wrong = std::make_exception_ptr(InRow(error, jobs[i], request));
        } catch (...) {
            const std::lock_guard lock(mutex);
            wrong = std::current_exception();
        }
        return false;
    });
    failures.erase(std::remove(failures.begin(), failures.end(), ""), failures.end());
    if (wrong) {
        std::for_each(failures.begin(), failures.end(), Complain);
        std::rethrow_exception(wrong);
    }
    if (!failures.empty()) {
        std::for_each(failures.begin(), failures.end() - 1, Complain);
        throw WorkError{failures.back()};
    }
}

}  // namespace

void Generate(const GenerateRequest& request)
{
    CheckSources(request);
    if (request.check) {
        CheckPages(request);
        return;
    }
    CheckRequest(request);
    const std::vector<PageJob> jobs = JobsOf(request);
    CheckAllDiffer(jobs);
    if (jobs.size() == 1) {
        GeneratePage(jobs.front(), request, false);
    } else {
        GeneratePages(jobs, request);
    }
}

void MakeThumbnail(const std::string& settingsFile, const std::string& output, int size)
{
    const Source source{settingsFile};
    ScreenlessPlatform platform;
    const OpenWindow open = Open(source, {}, platform);
    const PageFrame frame = open.window->ReadPage().frame;
    const PaperSize paper{frame.paperWidth, frame.paperHeight};
    const auto longer = static_cast<double>(std::max(paper.width, paper.height));
    BinaryStream stream = OutputFile(output).CreateBinaryFile();
    if (stream.IsOpen()) {
        constexpr double thinnest = 0.5;  // pixels: thinner lines would hardly be seen
        const std::string content = DrawPage(settingsFile, *open.window);
        WritePng(paper, content, {size * pointsPerInch / longer, false, thinnest}, stream);
        stream.Close();
    }
    if (stream.Error()) {
        throw WorkError{output + ": " + stream.Error().message()};
    }
}

}  // namespace linealis::cli
