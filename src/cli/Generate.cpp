#include "cli/Generate.h"

#include "app/PageCheck.h"
#include "cli/Errors.h"
#include "cli/PageJobs.h"
#include "cli/Table.h"
#include "platform/Process.h"
#include "platform/ScreenlessPlatform.h"

#include <algorithm>
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
};

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

/// One page by the road of the Generate button with the shift key held down: a file that the settings brought
/// back is forgotten, and the save dialog answers with the output file.
void GeneratePage(const PageJob& job, const GenerateRequest& request, const std::atomic<bool>& stop)
{
    ScreenlessPlatform platform;
    platform.onYield = [&stop] {
        if (stop) {
            throw PageStopped{};
        }
    };
    platform.shiftKey = true;
    platform.saveAnswer = OutputFile(job.output);
    if (request.output.empty()) {  // whoever may write to the folder shall not choose another file for the page
        platform.saveAnswer = platform.saveAnswer.WithoutLinks();
    }
    const OpenWindow open = Open(*job.source, job.actions, platform);
    open.window->PushButtonGenerate_Action();
    if (open.window->LastPage() == PageEnd::Stopped) {
        return;
    }
    Say(platform);
    if (const std::string_view content = open.window->Pdf().Stream(); content.size() <= longestChecked) {
        for (const PageWarning& warning : WarningsOf(*open.window, content, platform)) {
            Complain("warning: " + job.name + ": " + warning.text);
        }
    }
    if (!platform.fileErrors.empty()) {
        throw WorkError{job.output + ": " + platform.fileErrors.front().reason};
    }
    if (request.view) {
        LaunchViewer(platform.saveAnswer);
    }
}

/// Tells before the page is printed what will disappoint on it.
void CheckPage(const PageJob& job, const GenerateRequest& request, Json& found)
{
    ScreenlessPlatform platform;
    const OpenWindow open = Open(*job.source, job.actions, platform);
    std::string content;
    try {
        content = open.window->DrawPage();
    } catch (const PageGivenUp& givenUp) {
        throw WorkError{job.name + ": " + givenUp.reason};
    }
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
    if (request.outputDirectory.empty()) {
        return {&source, source.name, request.actions, request.output};
    }
    const std::string stem = source.preset != nullptr ? source.name : fs::path(source.name).stem().string();
    return {&source, source.name, request.actions, (fs::path(request.outputDirectory) / (stem + ".pdf")).string()};
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
        job.output = (output.parent_path() / (name + ".pdf")).string();
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

}  // namespace linealis::cli
