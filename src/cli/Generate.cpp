#include "cli/Generate.h"

#include "cli/Commands.h"
#include "cli/Errors.h"
#include "cli/PageJobs.h"
#include "cli/Table.h"

#include <algorithm>
#include <cctype>
#include <exception>
#include <mutex>
#include <optional>
#include <set>
#include <string_view>

namespace linealis::cli {

namespace {

namespace fs = std::filesystem;

std::optional<PageFormat> FormatNamed(std::string name)
{
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    for (const auto& [known, format] : pageFormats) {
        if (known == name) {
            return format;
        }
    }
    return std::nullopt;
}

std::string_view NameOf(PageFormat format)
{
    return pageFormats.at(static_cast<std::size_t>(format)).name;
}

/// What --format says, or else the ending of the output file. One without an ending is a PDF file.
PageFormat FormatOf(const GenerateRequest& request)
{
    if (request.format) {
        if (const auto format = FormatNamed(*request.format)) {
            return *format;
        }
        std::vector<std::string> possible(pageFormats.size());
        std::transform(pageFormats.begin(), pageFormats.end(), possible.begin(),
                       [](const PageFormatName& known) { return std::string(known.name); });
        throw Unknown("format", *request.format, possible);
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
        fs::path name = row.fileName;
        if (name.empty()) {
            name = output.stem().string() + "-" + std::string(digits - number.size(), '0') + number;
        }
        if (name.extension() != output.extension()) {
            name += output.extension();
        }
        job.output = (output.parent_path() / name).string();
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

std::vector<std::string> InputsOf(const std::vector<Source>& sources, const std::vector<Action>& actions)
{
    std::vector<std::string> inputs;
    for (const Source& source : sources) {
        if (IsFile(source)) {
            inputs.push_back(source.name);
        }
        if (source.form) {
            inputs.push_back(source.form->name);
        }
    }
    for (const Action& action : actions) {
        if (action.kind == Action::Kind::Load || action.kind == Action::Kind::Markers) {
            inputs.push_back(action.argument);
        }
    }
    return inputs;
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
    CheckIsNoInput(request.output, request.sources, request.actions);  // before its ending is looked at
    if (request.how.view && request.output == "-") {
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

/// What is given and does nothing.
void WarnOfIdleOptions(const GenerateRequest& request)
{
    const auto warnIf = [](bool isIdle, const char* option, const char* where) {
        if (isIdle) {
            Complain(std::string("warning: ") + option + " has no effect " + where);
        }
    };
    const bool isPicture = !request.check && FormatOf(request) == PageFormat::Png;
    warnIf(request.asJson && !request.check, "--json", "without --check");
    warnIf(request.isStrict && !request.check, "--strict", "without --check");
    warnIf(request.how.dotsPerInch && !isPicture, "--dpi", "on a page that is no PNG file");
    warnIf(request.how.isTransparent && !isPicture, "--transparent", "on a page that is no PNG file");
}

bool CheckPages(const GenerateRequest& request)
{
    if (!request.output.empty() || !request.outputDirectory.empty() || request.how.view) {
        throw UsageError{"--check writes no page, and goes without -o, --output-dir and --view"};
    }
    Json found = Json::array();
    bool hasFound = false;
    for (const PageJob& job : JobsOf(request)) {
        hasFound = CheckPage(job, request.asJson, found) || hasFound;
    }
    if (request.asJson) {
        Print(found);
    }
    return hasFound && request.isStrict;
}

/// Names the row that a wrong command line comes from, if it comes from one.
UsageError InRow(const UsageError& error, const PageJob& job, const GenerateRequest& request)
{
    return request.table ? UsageError{job.name + ": " + error.message} : error;
}

/// Each page is tried after another has failed in its work; a command line that makes no sense ends all.
void GeneratePages(const std::vector<PageJob>& jobs, const GenerateRequest& request, const OutputOptions& how)
{
    std::vector<std::string> failures(jobs.size());
    std::exception_ptr wrong;
    std::mutex mutex;
    MakePages(jobs.size(), request.jobs, [&](std::size_t i, const std::atomic<bool>& stop) {
        try {
            GeneratePage(jobs[i], how, stop);
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

void CheckIsNoInput(const std::string& output, const std::vector<Source>& sources,
                    const std::vector<Action>& actions)
{
    for (const std::string& input : InputsOf(sources, actions)) {
        std::error_code oneIsMissing;
        if (fs::equivalent(input, output, oneIsMissing)) {
            throw UsageError{"the page would replace " + input + ", which it is made from"};
        }
    }
}

bool Generate(const GenerateRequest& request)
{
    CheckSources(request);
    if (request.check) {
        WarnOfIdleOptions(request);
        return CheckPages(request);
    }
    CheckRequest(request);
    WarnOfIdleOptions(request);
    const std::vector<PageJob> jobs = JobsOf(request);
    CheckAllDiffer(jobs);
    for (const PageJob& job : jobs) {
        CheckIsNoInput(job.output, request.sources, request.actions);
    }
    OutputOptions how = request.how;
    how.refusesLinks = !request.outputDirectory.empty();
    if (jobs.size() == 1) {
        GeneratePage(jobs.front(), how, false);
    } else {
        GeneratePages(jobs, request, how);
    }
    return false;
}

}  // namespace linealis::cli
