#include "cli/Pad.h"

#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "cli/PadFile.h"
#include "cli/PageOutput.h"
#include "platform/ScreenlessPlatform.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>

namespace linealis::cli {

namespace {

/// The controls that determine the paper, which every kind has, in the order to set them: the unit before the
/// lengths that depend on it, the paper size before the custom lengths.
constexpr std::array paperControls = {"PopupUnits", "PopupPaperSize", "EditCustomWidth", "EditCustomHeight",
                                      "PopupOrientation"};

/// The page of one source.
struct OnePage {
    std::string name;
    PaperSize paper{};
    std::array<std::string, paperControls.size()> paperValues;  ///< of paperControls, as SetControl takes them
    std::size_t number = 0;                                     ///< assigned by PadFile::Take
};
using Pages = std::vector<OnePage>;

/// Makes the page of a source and adds it to the pad file. If `sheet` is not null, uses its paper.
OnePage TakePage(const Source& source, const std::vector<Action>& actions, const OnePage* sheet, PadFile& pad)
{
    ScreenlessPlatform platform;
    const OpenWindow open = Open(source, actions, platform);
    OnePage page;
    page.name = source.name;
    for (std::size_t i = 0; i < paperControls.size(); ++i) {
        const char* const control = paperControls[i];
        if (sheet != nullptr) {
            SetControl(source.name, open.window->form, {control, sheet->paperValues[i]});
        }
        page.paperValues[i] = ValueOf(*open.window->form.Find(control));
    }
    try {
        Turns turns([] {});
        const DrawnPage drawn = open.window->DrawPage();
        page.paper = {drawn.frame.paperWidth, drawn.frame.paperHeight};
        page.number = pad.Take(source.name, FileBytesOf(drawn, platform.Now(), turns));
        Say(platform);
        Warn(source.name, open, drawn, platform);
    } catch (const PageGivenUp& givenUp) {
        throw WorkError{source.name + ": " + givenUp.reason};
    }
    return page;
}

/// The layout of the pages on a side, and the size of the side in points.
struct Cells {
    std::int64_t columns;
    std::int64_t rows;
    PaperSize page;

    PaperSize Side() const { return {columns * page.width, rows * page.height}; }
};

/// Returns the layout for 1, 2, or 4 pages on a side. Two pages share their longer edge.
Cells CellsOf(std::size_t up, const PaperSize& page)
{
    const bool isUpright = page.width <= page.height;
    switch (up) {
    case 2:
        return isUpright ? Cells{2, 1, page} : Cells{1, 2, page};
    case 4:
        return {2, 2, page};
    default:
        return {1, 1, page};
    }
}

/// Returns PDF operators that draw the cut marks: gray ticks at both ends of each cut, and a cross where two cuts
/// meet.
std::string CutMarks(const Cells& cells)
{
    constexpr std::int64_t length = 14;  // points, about 5 mm
    const PaperSize side = cells.Side();
    std::ostringstream marks;
    marks << "q 0.5 G 0.25 w\n";
    const auto line = [&](std::int64_t x, std::int64_t y, std::int64_t toX, std::int64_t toY) {
        marks << x << ' ' << y << " m " << toX << ' ' << toY << " l S\n";
    };
    const std::int64_t x = cells.page.width, y = cells.page.height;
    if (cells.columns == 2) {
        line(x, 0, x, length);
        line(x, side.height - length, x, side.height);
    }
    if (cells.rows == 2) {
        line(0, y, length, y);
        line(side.width - length, y, side.width, y);
    }
    if (cells.columns == 2 && cells.rows == 2) {
        line(x - length / 2, y, x + length / 2, y);
        line(x, y - length / 2, x, y + length / 2);
    }
    marks << "Q\n";
    return marks.str();
}

/// Adds a side with `count` pages, row by row from the top. Takes them from the list in turn, beginning with number
/// `first`.
void AddSide(const Cells& cells, const Pages& pages, std::size_t first, std::size_t count, PadFile& pad)
{
    std::vector<PadFile::Placed> placed;
    for (std::size_t i = 0; i < count; ++i) {
        const auto cell = static_cast<std::int64_t>(i);
        placed.push_back({pages[(first + i) % pages.size()].number, cell % cells.columns * cells.page.width,
                          (cells.rows - 1 - cell / cells.columns) * cells.page.height});
    }
    pad.AddSide(cells.Side().width, cells.Side().height, placed, CutMarks(cells));
}

void CheckRequest(const PadRequest& request)
{
    CheckIsNamed(request.output);
    if (request.up != 1 && request.up != 2 && request.up != 4) {
        throw Unknown("number of pages on a side", std::to_string(request.up), {"1", "2", "4"});
    }
}

std::string Text(const PaperSize& paper)
{
    return std::to_string(paper.width) + " by " + std::to_string(paper.height) + " points";
}

/// Throws UsageError unless all pages have the same size. Sides that are cut, or printed on both sides, need that;
/// a pad of single pages does not.
void CheckSizes(const Pages& fronts, const Pages& backs, std::size_t up)
{
    const OnePage& first = fronts.front();
    const auto check = [&](const OnePage& page) {
        if (page.paper.width != first.paper.width || page.paper.height != first.paper.height) {
            throw UsageError{"the pages of a sheet must be of one size, but " + first.name + " has " +
                             Text(first.paper) + " and " + page.name + " " + Text(page.paper)};
        }
    };
    if (up > 1 || !backs.empty()) {
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
    CheckSizes(fronts, backs, request.up);
    const Cells cells = CellsOf(request.up, fronts.front().paper);
    for (std::size_t first = 0; first < request.pages; first += request.up) {
        const std::size_t count = std::min(request.up, request.pages - first);
        for (const Pages* const pages : {&fronts, &backs}) {
            if (pages->empty()) {
                continue;
            }
            if (request.up == 1) {
                pad.AddPage((*pages)[first % pages->size()].number);
            } else {  // a partly filled front has a full back: its pages are mirrored when the sheet turns
                AddSide(cells, *pages, first, pages == &backs ? request.up : count, pad);
            }
        }
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
