#include "cli/Pad.h"

#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "cli/PadPages.h"
#include "kinds/Booklet.h"
#include "kinds/Poster.h"
#include "pdf/Units.h"
#include "pipeline/form/LengthText.h"
#include "pipeline/page/PaperSizes.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <stdexcept>

namespace linealis::cli {

namespace {

/// Adds a side of a pad with `count` pages. Pages of a table are in the order of their numbers, sources alternate
/// on the sheet.
void AddSide(const PadLayout& layout, const std::vector<PadPage>& pages, std::size_t sheet, std::size_t count,
             bool isFront, bool isTable, PadFile& file)
{
    std::vector<PadFile::Placed> placed;
    for (std::size_t place = 0; place < count; ++place) {
        const std::size_t page = isTable ? layout.NumberOf(sheet, place) - 1 : sheet * layout.up + place;
        const Point corner = layout.CornerOf(place);
        placed.push_back({pages[page % pages.size()].number, corner.x, corner.y});
    }
    file.AddSide(layout.Side().width, layout.Side().height, placed, PadMarks(layout, sheet, isFront));
}

/// Adds all sides of one copy of the pad.
void AddPad(const PadLayout& layout, const PadPages& pages, bool isTable, PadFile& file)
{
    for (std::size_t sheet = 0; sheet < layout.Sheets(); ++sheet) {
        for (const std::vector<PadPage>* const side : {&pages.fronts, &pages.backs}) {
            if (side->empty()) {
                continue;
            }
            const bool isFront = side == &pages.fronts;
            if (layout.up == 1 && !(layout.HasStamps() && isFront)) {
                file.AddPage((*side)[sheet % side->size()].number);
            } else {  // a partly filled front has a full back: its pages are mirrored when the sheet turns
                AddSide(layout, *side, sheet, isFront ? layout.PagesOn(sheet) : layout.up, isFront,
                        isTable && isFront, file);
            }
        }
    }
}

void AddBooklet(const Booklet& booklet, const PadPages& pages, PadFile& file)
{
    for (std::size_t sheet = 0; sheet < booklet.Sheets(); ++sheet) {
        for (const bool isFront : {true, false}) {
            const std::vector<NumberedPlace> places = booklet.PlacesOn(sheet, isFront);
            std::vector<PadFile::Placed> placed;
            for (const NumberedPlace& place : places) {
                placed.push_back({pages.fronts[(place.number - 1) % pages.fronts.size()].number, place.corner.x,
                                  place.corner.y});
            }
            file.AddSide(booklet.Side().width, booklet.Side().height, placed, PadStamps(booklet.pad, places));
        }
    }
}

void AddPoster(const Poster& poster, const PadPage& page, PadFile& file)
{
    for (std::size_t row = 0; row < poster.Rows(); ++row) {
        for (std::size_t column = 0; column < poster.Columns(); ++column) {
            const Point corner = poster.CornerOf(column, row);
            file.AddSide(poster.sheet.width, poster.sheet.height, {{page.number, corner.x, corner.y}},
                         poster.Marks(column, row), posterMargin);
        }
    }
}

/// Throws UsageError if options contradict each other.
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
    const auto checkNot = [](bool isGiven, const char* option, const char* with) {
        if (isGiven) {
            throw UsageError{std::string(with) + " does not go with " + option};
        }
    };
    if (request.creep && !request.isBooklet) {
        throw UsageError{"--creep goes with --booklet alone"};
    }
    if (request.overlap && !request.poster) {
        throw UsageError{"--overlap goes with --poster alone"};
    }
    const bool isCut = request.layout.up > 1;
    if (request.isBooklet) {
        checkNot(isCut, "--up", "--booklet");
        checkNot(request.back.has_value(), "--back", "--booklet");
        checkNot(request.poster.has_value(), "--poster", "--booklet");
    }
    if (request.poster) {
        checkNot(isCut, "--up", "--poster");
        checkNot(request.back.has_value(), "--back", "--poster");
        checkNot(request.table.has_value(), "--table", "--poster");
        checkNot(request.pages.has_value(), "--pages", "--poster");
        checkNot(request.layout.hasNumbers, "--numbers", "--poster");
        checkNot(request.firstDate.has_value(), "--dates", "--poster");
    }
}

std::string Text(const PaperSize& paper)
{
    return std::to_string(paper.width) + " by " + std::to_string(paper.height) + " points";
}

/// Throws UsageError unless all pages have the same size. Sides that are cut, folded, stamped, or printed on both
/// sides need that; a pad of single pages does not.
void CheckSizes(const PadPages& pages, const PadRequest& request, const PadLayout& layout)
{
    const PadPage& first = pages.fronts.front();
    const auto check = [&](const PadPage& page) {
        if (page.paper.width != first.paper.width || page.paper.height != first.paper.height) {
            throw UsageError{"the pages of a sheet must be of one size, but " + first.name + " has " +
                             Text(first.paper) + " and " + page.name + " " + Text(page.paper)};
        }
    };
    if (layout.up > 1 || layout.HasStamps() || request.isBooklet || !pages.backs.empty()) {
        std::for_each(pages.fronts.begin(), pages.fronts.end(), check);
        std::for_each(pages.backs.begin(), pages.backs.end(), check);
    }
}

/// Returns the points of a length with a unit, or of "0". Throws UsageError if it is none, or not from 0 to `most`
/// points.
double PointsOf(const char* option, const std::string& text, double most)
{
    const std::optional<double> inches =
        text == "0" ? std::optional(0.0) : TypedNumber(text, Quantity::Inches, LengthUnit::Inches);
    if (!inches || !(*inches >= 0.0) || *inches * pointsPerInch > most) {
        throw UsageError{std::string(option) + " is '" + text +
                         "', but must be a length such as 5mm or 1/4in, at most " +
                         std::to_string(static_cast<int>(most * mmPerPoint)) + " mm"};
    }
    return *inches * pointsPerInch;
}

/// Returns the day of a date, YYYY-MM-DD. Throws UsageError if it is none.
std::chrono::sys_days DayOf(const std::string& text)
{
    int year = 0;
    unsigned month = 0, day = 0;
    const char* const end = text.data() + text.size();
    const auto take = [&](const char* from, const char* to, auto& number) {
        const auto [stop, error] = std::from_chars(from, to, number);
        return error == std::errc() && stop == to;
    };
    const bool isWritten = text.size() == 10 && text[4] == '-' && text[7] == '-' &&
                           take(text.data(), text.data() + 4, year) &&
                           take(text.data() + 5, text.data() + 7, month) && take(text.data() + 8, end, day);
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month),
                                           std::chrono::day(day)};
    if (!isWritten || year < 1 || !date.ok()) {
        throw UsageError{"--dates is '" + text + "', but must be a date such as 2026-12-31"};
    }
    return date;
}

/// Returns the poster of the page. Throws UsageError if there is no such paper, or it leaves no room.
Poster PosterOf(const PadRequest& request, const PadPage& page)
{
    const auto papers = NamedPapers();
    const auto paper = std::find_if(papers.begin(), papers.end(),
                                    [&](const NamedPaper& each) { return IsSameText(each.name, *request.poster); });
    if (paper == papers.end()) {
        std::vector<std::string> possible;
        std::transform(papers.begin(), papers.end(), std::back_inserter(possible),
                       [](const NamedPaper& each) { return std::string(each.name); });
        throw Unknown("paper", *request.poster, possible);
    }
    const std::string overlap = request.overlap.value_or("10mm");
    constexpr double mostOverlap = 288.0;  // points, 4 inches
    const Poster poster = PosterOn(paper->size, page.paper, PointsOf("--overlap", overlap, mostOverlap));
    const std::size_t sheets = poster.Columns() * poster.Rows();
    if (sheets == 0 || sheets > mostPosterSheets) {
        throw UsageError{
            "a poster of " + page.name + " on " + std::string(paper->name) + " with an overlap of " + overlap +
            (sheets == 0
                 ? " has no room"
                 : " takes " + std::to_string(sheets) + " sheets, more than " + std::to_string(mostPosterSheets))};
    }
    return poster;
}

/// Returns the bytes of the pad file.
std::string Join(const PadRequest& request)
{
    PadFile file;
    PadLayout layout = request.layout;
    if (request.firstDate) {
        layout.firstDate = DayOf(*request.firstDate);
    }
    const double creep = PointsOf("--creep", request.creep.value_or("0"), mostCreep);
    const PadPages pages = MakePages(request, file);
    layout.page = pages.fronts.front().paper;
    layout.pages = request.pages.value_or(request.table ? pages.fronts.size() : layout.pages);
    CheckSizes(pages, request, layout);
    if (request.poster && pages.fronts.size() > 1) {
        throw UsageError{"--poster takes one page, but " + std::to_string(pages.fronts.size()) + " are given"};
    }
    const std::optional<Poster> poster =
        request.poster ? std::optional(PosterOf(request, pages.fronts.front())) : std::nullopt;
    for (std::size_t copy = 0; copy < request.copies; ++copy) {
        if (poster) {
            AddPoster(*poster, pages.fronts.front(), file);
        } else if (request.isBooklet) {
            AddBooklet({layout, creep}, pages, file);
        } else {
            AddPad(layout, pages, request.table.has_value(), file);
        }
    }
    return file.Bytes();
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
