#include "cli/Pad.h"

#include "cli/Commands.h"
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

/// Draws the page of a source, and says what there is to say about it. If `sheet` is not null, uses its paper.
MadePage Make(const Source& source, const std::string& name, const std::vector<Action>& actions, const Form* sheet,
              const Remarks& remarks)
{
    auto platform = std::make_unique<ScreenlessPlatform>();
    OpenWindow open = Open(source, actions, *platform);
    if (sheet != nullptr) {
        TakePaperOf(*sheet, name, open.window->form);
    }
    DrawnPage drawn = Draw(name, *open.window);
    remarks.Say(*platform);
    remarks.Warn(name, WarningsOfJob(open, drawn, *platform));
    return {std::move(platform), std::move(open), std::move(drawn)};
}

PadPage Named(const std::string& name, const DrawnPage& drawn)
{
    return {name, {drawn.frame.paperWidth, drawn.frame.paperHeight}};
}

/// Adds a page per row of the table. Returns the last of them.
MadePage AddRows(const PadRequest& request, const Remarks& remarks, PadFile& file, PadPages& pages)
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
        try {
            last.emplace(Make(source, name, actions, nullptr, remarks));
        } catch (const UsageError& error) {
            throw UsageError{name + ": " + error.message};
        }
        file.AddFront(last->drawn);
        pages.fronts.push_back(Named(name, last->drawn));
    }
    if (pages.fronts.empty()) {
        throw WorkError{TableIsEmpty(table.Name()).English()};
    }
    return std::move(*last);
}

/// Adds a page per source. Returns the first of them.
MadePage AddSources(const PadRequest& request, const Remarks& remarks, PadFile& file, PadPages& pages)
{
    std::optional<MadePage> first;
    for (const Source& source : request.sources) {
        MadePage made = Make(source, source.name, request.actions, nullptr, remarks);
        file.AddFront(made.drawn, CarriedForm(*made.open.kind, made.open.window->form));
        pages.fronts.push_back(Named(source.name, made.drawn));
        if (!first) {
            first.emplace(std::move(made));
        }
    }
    return std::move(*first);
}

/// Adds the pages of the request, each once.
PadPages AddPages(const PadRequest& request, const std::optional<Source>& back, const Remarks& remarks,
                  PadFile& file)
{
    PadPages pages;
    const MadePage front =
        request.table ? AddRows(request, remarks, file, pages) : AddSources(request, remarks, file, pages);
    if (back) {
        const MadePage made =
            Make(*back, back->name, {}, back->IsFile() ? nullptr : &front.open.window->form, remarks);
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

/// Returns the bytes of the pad file. If `answer` is not null, says there what the pad has; otherwise prints
/// warnings.
std::string BytesOf(const PadRequest& request, Json* answer)
{
    const PadInputs inputs{request.table.has_value(), request.back.has_value()};
    CheckPadOptions(request.options, inputs);
    const std::optional<Source> back = request.back ? std::optional(SourceNamed(*request.back)) : std::nullopt;
    CheckFiles(request, back);
    std::string bytes;
    BinaryStream stream = BinaryStream::IntoMemory(bytes);
    Turns turns([] {});
    PadFile file(stream, turns);
    const PadPages pages = AddPages(request, back, Remarks(answer), file);
    const PadPlan plan = PlanOf(request.options, inputs, pages);
    file.Finish(plan, request.options.copies, ScreenlessPlatform().Now());
    if (answer != nullptr) {
        (*answer)["fronts"] = pages.fronts.size();
        (*answer)["sides"] = plan.Sides() * request.options.copies;
    }
    return bytes;
}

}  // namespace

void MakePad(const PadRequest& request)
{
    CheckIsNamed(request.output);
    CheckRoomForAnswer(request.asJson, request.output);
    Json answer = {{"file", request.output}};
    std::string bytes;
    try {
        bytes = BytesOf(request, request.asJson ? &answer : nullptr);
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
    if (request.asJson) {
        Print(answer);
    }
}

}  // namespace linealis::cli
