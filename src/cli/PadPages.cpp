#include "cli/PadPages.h"

#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "cli/PageOutput.h"
#include "cli/Remarks.h"
#include "cli/Table.h"

#include <optional>
#include <utility>

namespace linealis::cli {

namespace {

/// A page with the window that it was made in.
struct MadePage {
    std::unique_ptr<ScreenlessPlatform> platform = std::make_unique<ScreenlessPlatform>();  ///< of the window
    OpenWindow open;
    PadPage page;
};

/// Makes the page of a source and takes it into the file. If `sheet` is not null, uses its paper.
MadePage Take(const Source& source, const std::string& name, const std::vector<Action>& actions, const Form* sheet,
              PadFile& file)
{
    MadePage made;
    ScreenlessPlatform& platform = *made.platform;
    made.open = Open(source, actions, platform);
    if (sheet != nullptr) {
        TakePaperOf(*sheet, name, made.open.window->form);
    }
    try {
        Turns turns([] {});
        const DrawnPage drawn = made.open.window->DrawPage();
        made.page = {name,
                     file.Take(name, FileBytesOf(drawn, platform.Now(), turns)),
                     {drawn.frame.paperWidth, drawn.frame.paperHeight}};
        const Remarks remarks;
        remarks.Say(platform);
        remarks.Warn(name, WarningsOfJob(made.open, drawn, platform));
    } catch (const PageGivenUp& givenUp) {
        throw WorkError{name + ": " + std::string(givenUp.reason.Text())};
    }
    return made;
}

/// Makes a page per row of a table. Returns the last of them.
MadePage TakeRows(const PadRequest& request, const Source& source, PadFile& file, std::vector<PadPage>& pages)
{
    ScreenlessPlatform platform;
    const auto window = MakeWindow(KindOf(source), platform);
    Table table(*request.table, window->form);
    std::optional<MadePage> last;
    while (const std::optional<TableRow> row = table.Next()) {
        if (pages.size() == mostPadPages) {
            throw WorkError{table.Name() + ": has more than " + std::to_string(mostPadPages) + " rows"};
        }
        std::vector<Action> actions = request.actions;
        actions.insert(actions.end(), row->actions.begin(), row->actions.end());
        last.reset();  // its window ends before the platform of that
        last.emplace(Take(source, table.Name() + ", row " + std::to_string(row->number), actions, nullptr, file));
        pages.push_back(last->page);
    }
    if (pages.empty()) {
        throw WorkError{table.Name() + ": has no rows below its header"};
    }
    return std::move(*last);
}

void CheckInputs(const PadRequest& request, const std::vector<Source>& sources, const std::vector<Source>& backs)
{
    if (request.table && sources.size() > 1) {
        throw UsageError{"--table takes one source, but " + std::to_string(sources.size()) + " are given"};
    }
    CheckIsNoInput(request.output, InputsOf(sources, request.actions));
    CheckIsNoInput(request.output, InputsOf(backs, {}));
    if (request.table) {
        CheckIsNoInput(request.output, {*request.table});
    }
}

}  // namespace

PadPages MakePages(const PadRequest& request, PadFile& file)
{
    const std::vector<Source> sources = SourcesOf(request.sources);
    std::vector<Source> backs;
    if (request.back) {
        backs.push_back(SourceNamed(*request.back));
    }
    CheckInputs(request, sources, backs);
    CheckIsPdf(request.output);
    PadPages pages;
    MadePage front;
    if (request.table) {
        front = TakeRows(request, sources.front(), file, pages.fronts);
    } else {
        for (const Source& source : sources) {
            MadePage made = Take(source, source.name, request.actions, nullptr, file);
            pages.fronts.push_back(made.page);
            if (pages.fronts.size() == 1) {
                front = std::move(made);
            }
        }
    }
    for (const Source& back : backs) {
        const Form* const sheet = back.IsFile() ? nullptr : &front.open.window->form;
        pages.backs.push_back(Take(back, back.name, {}, sheet, file).page);
    }
    return pages;
}

}  // namespace linealis::cli
