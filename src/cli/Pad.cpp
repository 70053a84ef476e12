#include "cli/Pad.h"

#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "cli/PageOutput.h"
#include "cli/Remarks.h"
#include "cli/Table.h"
#include "kinds/PadFile.h"

#include <memory>
#include <optional>
#include <utility>

namespace linealis::cli {

namespace {

/// A page that was drawn, with the window that it was made in.
struct MadePage {
    std::unique_ptr<ScreenlessPlatform> platform;  ///< of the window
    OpenWindow open;
    DrawnPage drawn;
};

/// Draws the page of a window. Throws WorkError if it is abandoned.
DrawnPage Draw(const std::string& name, PaperWindow& window)
{
    try {
        return window.DrawPage();
    } catch (const PageGivenUp& givenUp) {
        throw WorkError{name + ": " + std::string(givenUp.reason.Text())};
    }
}

/// Draws the page of a source, and prints warnings about it. If `sheet` is not null, uses its paper.
MadePage Make(const Source& source, const std::string& name, const std::vector<Action>& actions, const Form* sheet)
{
    auto platform = std::make_unique<ScreenlessPlatform>();
    OpenWindow open = Open(source, actions, *platform);
    if (sheet != nullptr) {
        TakePaperOf(*sheet, name, open.window->form);
    }
    DrawnPage drawn = Draw(name, *open.window);
    const Remarks remarks;
    remarks.Say(*platform);
    remarks.Warn(name, WarningsOfJob(open, drawn, *platform));
    return {std::move(platform), std::move(open), std::move(drawn)};
}

PadPage Named(const std::string& name, const DrawnPage& drawn)
{
    return {name, {drawn.frame.paperWidth, drawn.frame.paperHeight}};
}

/// Adds a page per row of the table. Returns the last of them.
MadePage AddRows(const PadRequest& request, PadFile& file, PadPages& pages)
{
    const Source& source = request.sources.front();
    ScreenlessPlatform platform;
    const OpenWindow below = Open(source, request.actions, platform);
    Table table = Table::Held(*request.table, below.window->form);
    file.AttachTable(*table.Text(), CarriedForm(*below.kind, below.window->form));
    std::optional<MadePage> last;
    while (const std::optional<RowOfTable> row = table.Next()) {
        if (pages.fronts.size() == mostPadPages) {
            throw WorkError{TableIsTooLong(table.Name(), mostPadPages).English()};
        }
        std::vector<Action> actions = request.actions;
        actions.insert(actions.end(), row->actions.begin(), row->actions.end());
        const std::string name = table.Name() + ", row " + std::to_string(row->number);
        last.reset();  // its window ends before the platform of that
        last.emplace(Make(source, name, actions, nullptr));
        file.AddFront(last->drawn);
        pages.fronts.push_back(Named(name, last->drawn));
    }
    if (pages.fronts.empty()) {
        throw WorkError{TableIsEmpty(table.Name()).English()};
    }
    return std::move(*last);
}

/// Adds a page per source. Returns the first of them.
MadePage AddSources(const PadRequest& request, PadFile& file, PadPages& pages)
{
    std::optional<MadePage> first;
    for (const Source& source : request.sources) {
        MadePage made = Make(source, source.name, request.actions, nullptr);
        file.AddFront(made.drawn, CarriedForm(*made.open.kind, made.open.window->form));
        pages.fronts.push_back(Named(source.name, made.drawn));
        if (!first) {
            first.emplace(std::move(made));
        }
    }
    return std::move(*first);
}

/// Adds the pages of the request, each once.
PadPages AddPages(const PadRequest& request, const std::optional<Source>& back, PadFile& file)
{
    PadPages pages;
    const MadePage front = request.table ? AddRows(request, file, pages) : AddSources(request, file, pages);
    if (back) {
        const MadePage made = Make(*back, back->name, {}, back->IsFile() ? nullptr : &front.open.window->form);
        file.SetBack(made.drawn, CarriedForm(*made.open.kind, made.open.window->form));
        pages.back = Named(back->name, made.drawn);
    }
    return pages;
}

void CheckFiles(const PadRequest& request, const std::optional<Source>& back)
{
    if (request.table && request.sources.size() > 1) {
        throw UsageError{"--table takes one source, but " + std::to_string(request.sources.size()) + " are given"};
    }
    CheckIsNoInput(request.output, InputsOf(request.sources, request.actions));
    if (back) {
        CheckIsNoInput(request.output, InputsOf({*back}, {}));
    }
    if (request.table) {
        CheckIsNoInput(request.output, {*request.table});
    }
    CheckIsPdf(request.output);
}

/// Returns the bytes of the pad file.
std::string BytesOf(const PadRequest& request)
{
    const PadInputs inputs{request.table.has_value(), request.back.has_value()};
    CheckPadOptions(request.options, inputs);
    const std::optional<Source> back = request.back ? std::optional(SourceNamed(*request.back)) : std::nullopt;
    CheckFiles(request, back);
    std::string bytes;
    BinaryStream stream = BinaryStream::IntoMemory(bytes);
    Turns turns([] {});
    PadFile file(stream, turns);
    const PadPages pages = AddPages(request, back, file);
    file.Finish(PlanOf(request.options, inputs, pages), request.options.copies, ScreenlessPlatform().Now());
    return bytes;
}

}  // namespace

void MakePad(const PadRequest& request)
{
    CheckIsNamed(request.output);
    std::string bytes;
    try {
        bytes = BytesOf(request);
    } catch (const PadError& error) {
        throw UsageError{error.message.English()};
    } catch (const UnknownInput& unknown) {
        throw Unknown(unknown);
    }
    BinaryStream stream = OutputFile(request.output).CreateBinaryFile();
    stream.Write(bytes);
    if (const std::error_code error = stream.Close()) {
        throw WorkError{request.output + ": " + error.message()};
    }
}

}  // namespace linealis::cli
