#include "cli/Pad.h"

#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "cli/PadFile.h"
#include "cli/PageOutput.h"
#include "platform/ScreenlessPlatform.h"
#include "text/Numbers.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <stdexcept>

namespace linealis::cli {

namespace {

/// The page of one source.
struct OnePage {
    std::string name;
    std::unique_ptr<ScreenlessPlatform> platform;  ///< of the window
    OpenWindow open;
    PaperSize paper{};
    std::size_t number = 0;  ///< assigned by PadFile::Take
};
using Pages = std::vector<OnePage>;

/// Makes the page of a source and adds it to the pad file. If `sheet` is not null, uses its paper.
OnePage TakePage(const Source& source, const std::vector<Action>& actions, const OnePage* sheet, PadFile& pad)
{
    OnePage page{source.name, std::make_unique<ScreenlessPlatform>(), {}, {}, 0};
    ScreenlessPlatform& platform = *page.platform;
    page.open = Open(source, actions, platform);
    if (sheet != nullptr) {
        TakePaperOf(sheet->open.window->form, source.name, page.open.window->form);
    }
    try {
        Turns turns([] {});
        const DrawnPage drawn = page.open.window->DrawPage();
        page.paper = {drawn.frame.paperWidth, drawn.frame.paperHeight};
        page.number = pad.Take(source.name, FileBytesOf(drawn, platform.Now(), turns));
        Say(platform);
        Warn(source.name, page.open, drawn, platform);
    } catch (const PageGivenUp& givenUp) {
        throw WorkError{source.name + ": " + std::string(givenUp.reason.Text())};
    }
    return page;
}

/// Adds a side of a sheet with `count` pages, which it takes from the list in turn.
void AddSide(const PadLayout& layout, const Pages& pages, std::size_t sheet, std::size_t count, bool isFront,
             PadFile& pad)
{
    std::vector<PadFile::Placed> placed;
    for (std::size_t place = 0; place < count; ++place) {
        const Point corner = layout.CornerOf(place);
        placed.push_back(
            {pages[(sheet * layout.up + place) % pages.size()].number, truncated(corner.x), truncated(corner.y)});
    }
    pad.AddSide(layout.Side().width, layout.Side().height, placed, PadMarks(layout, sheet, isFront));
}

/// Adds all sides of one copy of the pad.
void AddSides(const PadLayout& layout, const Pages& fronts, const Pages& backs, PadFile& pad)
{
    for (std::size_t sheet = 0; sheet < layout.Sheets(); ++sheet) {
        for (const Pages* const pages : {&fronts, &backs}) {
            if (pages->empty()) {
                continue;
            }
            const bool isFront = pages == &fronts;
            if (layout.up == 1 && !(layout.hasNumbers && isFront)) {
                pad.AddPage((*pages)[sheet % pages->size()].number);
            } else {  // a partly filled front has a full back: its pages are mirrored when the sheet turns
                AddSide(layout, *pages, sheet, isFront ? layout.PagesOn(sheet) : layout.up, isFront, pad);
            }
        }
    }
}

void CheckRequest(const PadRequest& request)
{
    CheckIsNamed(request.output);
    const auto& possible = possiblePagesUp;
    if (std::find(possible.begin(), possible.end(), request.layout.up) == possible.end()) {
        std::vector<std::string> texts;
        std::transform(possible.begin(), possible.end(), std::back_inserter(texts),
                       [](std::size_t up) { return std::to_string(up); });
        throw Unknown("number of pages on a side", std::to_string(request.layout.up), texts);
    }
}

std::string Text(const PaperSize& paper)
{
    return std::to_string(paper.width) + " by " + std::to_string(paper.height) + " points";
}

/// Throws UsageError unless all pages have the same size. Sides that are cut, numbered, or printed on both sides
/// need that; a pad of single pages does not.
void CheckSizes(const Pages& fronts, const Pages& backs, const PadLayout& layout)
{
    const OnePage& first = fronts.front();
    const auto check = [&](const OnePage& page) {
        if (page.paper.width != first.paper.width || page.paper.height != first.paper.height) {
            throw UsageError{"the pages of a sheet must be of one size, but " + first.name + " has " +
                             Text(first.paper) + " and " + page.name + " " + Text(page.paper)};
        }
    };
    if (layout.up > 1 || layout.hasNumbers || !backs.empty()) {
        for (const Pages* const pages : {&fronts, &backs}) {
            std::for_each(pages->begin(), pages->end(), check);
        }
    }
}

/// Returns the bytes of the pad file.
std::string Join(const PadRequest& request)
{
    PadFile pad;
    Pages fronts, backs;
    const std::vector<Source> sources = SourcesOf(request.sources);
    std::vector<Source> backSources;
    if (request.back) {
        backSources.push_back(SourceNamed(*request.back));
    }
    CheckIsNoInput(request.output, InputsOf(sources, request.actions));
    CheckIsNoInput(request.output, InputsOf(backSources, {}));
    CheckIsPdf(request.output);
    for (const Source& source : sources) {
        fronts.push_back(TakePage(source, request.actions, nullptr, pad));
    }
    for (const Source& back : backSources) {
        backs.push_back(TakePage(back, {}, back.IsFile() ? nullptr : &fronts.front(), pad));
    }
    PadLayout layout = request.layout;
    layout.page = fronts.front().paper;
    CheckSizes(fronts, backs, layout);
    for (std::size_t copy = 0; copy < request.copies; ++copy) {
        AddSides(layout, fronts, backs, pad);
    }
    return pad.Bytes();
}

}  // namespace

void MakePad(const PadRequest& request)
{
    CheckRequest(request);
    std::string bytes;
    try {
        bytes = Join(request);
    } catch (const std::runtime_error& error) {
        throw WorkError{request.output + ": " + error.what()};
    }
    BinaryStream stream = OutputFile(request.output).CreateBinaryFile();
    stream.Write(bytes);
    if (const std::error_code error = stream.Close()) {
        throw WorkError{request.output + ": " + error.message()};
    }
}

}  // namespace linealis::cli
