#include "cli/PageList.h"

#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "platform/FilePath.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace linealis::cli {

namespace fs = std::filesystem;

PageList::PageList(const GenerateRequest& theRequest, const PageFormat& theFormat)
    : request(theRequest), inputs(InputsOf(theRequest)), format(theFormat)
{
    if (!request.table) {
        count = request.sources.size();
    } else {
        window = MakeWindow(KindOf(request.sources.front()), platform);
        table.emplace(*request.table, window->form);
        while (table->Next()) {
            ++count;
        }
        if (count == 0) {
            throw WorkError{TableIsEmpty(table->Name()).English()};
        }
        Rewind();
    }
    if (!request.check) {
        CheckAllDiffer();
    }
}

std::optional<PageJob> PageList::Next()
{
    std::optional<PageJob> job = table          ? NextOfTable()
                                 : next < count ? std::optional(JobOf(request.sources[next]))
                                                : std::nullopt;
    if (job) {
        job->number = next++;
    }
    return job;
}

void PageList::Rewind()
{
    next = 0;
    if (table) {
        table->Rewind();
    }
}

/// Returns the page of a source without a row. It goes to the output directory, named after the source, or to the
/// output file.
PageJob PageList::JobOf(const Source& source) const
{
    if (request.outputDirectory.empty()) {
        return {&source, source.name, request.actions, request.output, &format};
    }
    const std::string stem = source.IsFile() ? PathOf(source.name).stem().string() : source.name;
    const fs::path name = PathOf(stem + "." + std::string(format.name));
    return {&source, source.name, request.actions, (PathOf(request.outputDirectory) / name).string(), &format};
}

/// Returns the page of the next row. Its file is named by the table or, if that gives no name, after the source
/// with the number of the row, padded with zeros so that names sort in the order of the rows.
std::optional<PageJob> PageList::NextOfTable()
{
    const std::optional<RowOfTable> row = table->Next();
    if (!row) {
        return std::nullopt;
    }
    PageJob job = JobOf(request.sources.front());
    job.name = table->Name() + ", row " + std::to_string(row->number);
    job.actions.insert(job.actions.end(), row->actions.begin(), row->actions.end());
    const std::string number = std::to_string(row->number);
    const std::size_t digits = std::to_string(count).size();
    const fs::path output = PathOf(job.output);
    fs::path name = PathOf(row->fileName);
    if (name.empty()) {
        name = output.stem();
        name += "-" + std::string(digits - std::min(digits, number.size()), '0') + number;
    }
    if (name.extension() != output.extension()) {
        name += output.extension();
    }
    job.output = (output.parent_path() / name).string();
    return job;
}

/// Throws UsageError if two pages would have the same file, or one would overwrite an input. Pages numbered by row
/// cannot collide, so their names are not stored: a table can be long.
void PageList::CheckAllDiffer()
{
    const bool areNumbered = table && !table->NamesPages();
    std::set<std::string> taken;
    while (const std::optional<PageJob> job = Next()) {
        CheckIsNoInput(job->output, inputs);
        if (!areNumbered && !taken.insert(job->output).second) {
            throw UsageError{"two pages would be written to " + job->output};
        }
    }
    Rewind();
}

}  // namespace linealis::cli
