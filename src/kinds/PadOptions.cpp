#include "kinds/PadOptions.h"

#include "pdf/Units.h"
#include "pipeline/form/LengthText.h"
#include "pipeline/form/SetControl.h"
#include "pipeline/page/PaperSizes.h"
#include "text/LetterCase.h"
#include "text/ShortText.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace linealis {

namespace {

constexpr std::string_view usualOverlap = "10mm";

std::string NameOf(const PadOptions& options, std::string_view name)
{
    return std::string(options.dashes) + std::string(name);
}

void CheckRange(const PadOptions& options, std::string_view name, std::size_t given, std::size_t most)
{
    if (given < 1 || given > most) {
        throw PadError{Message("%1 is %2, but must be a number from 1 to %3", NameOf(options, name), given, most)};
    }
}

void CheckNumbers(const PadOptions& options)
{
    const auto& possible = possiblePagesUp;
    if (std::find(possible.begin(), possible.end(), options.up) == possible.end()) {
        std::vector<std::string> texts;
        std::transform(possible.begin(), possible.end(), std::back_inserter(texts),
                       [](std::size_t up) { return std::to_string(up); });
        throw UnknownInput{"number of pages on a side", std::to_string(options.up), texts};
    }
    CheckRange(options, "pages", options.pages.value_or(1), mostPadPages);
    CheckRange(options, "copies", options.copies, mostPadCopies);
}

/// Throws PadError if options contradict each other.
void CheckTogether(const PadOptions& options, const PadInputs& inputs)
{
    const auto needs = [&](bool isGiven, const char* name, const char* with, bool hasThat) {
        if (isGiven && !hasThat) {
            throw PadError{Message("%1 goes with %2 alone", NameOf(options, name), NameOf(options, with))};
        }
    };
    const auto refuses = [&](const char* with, bool isGiven, const char* name) {
        if (isGiven) {
            throw PadError{Message("%1 does not go with %2", NameOf(options, with), NameOf(options, name))};
        }
    };
    needs(options.creep.has_value(), "creep", "booklet", options.isBooklet);
    needs(options.overlap.has_value(), "overlap", "poster", options.poster.has_value());
    const bool isCut = options.up > 1;
    if (options.isBooklet) {
        refuses("booklet", isCut, "up");
        refuses("booklet", inputs.hasBack, "back");
        refuses("booklet", options.poster.has_value(), "poster");
    }
    if (options.poster) {
        refuses("poster", isCut, "up");
        refuses("poster", inputs.hasBack, "back");
        refuses("poster", inputs.hasTable, "table");
        refuses("poster", options.pages.has_value(), "pages");
        refuses("poster", options.hasNumbers, "numbers");
        refuses("poster", options.firstDate.has_value(), "dates");
    }
}

/// Returns the points of a length with a unit, or of "0". Throws PadError if it is none, or not from 0 to `most`
/// points.
double PointsOf(const PadOptions& options, std::string_view name, std::string_view text, double most)
{
    const std::optional<double> inches =
        text == "0" ? std::optional(0.0) : TypedNumber(text, Quantity::Inches, LengthUnit::Inches);
    if (!inches || !(*inches >= 0.0) || *inches * pointsPerInch > most) {
        throw PadError{Message("%1 is '%2', but must be a length such as 5mm or 1/4in, at most %3 mm",
                               NameOf(options, name), Shortened(std::string(text)),
                               static_cast<int>(most * mmPerPoint))};
    }
    return *inches * pointsPerInch;
}

double CreepOf(const PadOptions& options)
{
    return PointsOf(options, "creep", options.creep.value_or("0"), mostCreep);
}

double OverlapOf(const PadOptions& options)
{
    return PointsOf(options, "overlap", options.overlap.value_or(std::string(usualOverlap)), mostOverlap);
}

/// Returns the first date, or nothing if there is none. Throws PadError if it is not a date.
std::optional<std::chrono::sys_days> FirstDateOf(const PadOptions& options)
{
    if (!options.firstDate) {
        return std::nullopt;
    }
    const std::string& text = *options.firstDate;
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
        throw PadError{Message("%1 is '%2', but must be a date such as 2026-12-31", NameOf(options, "dates"),
                               Shortened(text))};
    }
    return date;
}

/// Returns the paper of the poster. Throws UnknownInput if there is no such paper.
const NamedPaper& PaperOf(const std::string& name)
{
    const auto papers = NamedPapers();
    const auto paper = std::find_if(papers.begin(), papers.end(),
                                    [&](const NamedPaper& each) { return IsSameText(each.name, name); });
    if (paper == papers.end()) {
        std::vector<std::string> possible;
        std::transform(papers.begin(), papers.end(), std::back_inserter(possible),
                       [](const NamedPaper& each) { return std::string(each.name); });
        throw UnknownInput{"paper", Shortened(name), possible};
    }
    return *paper;
}

/// Returns the poster of the page. Throws PadError if it has no room, or too many sheets.
Poster PosterOf(const PadOptions& options, const PadPages& pages)
{
    if (pages.fronts.size() > 1) {
        throw PadError{
            Message("%1 takes one page, but %2 are given", NameOf(options, "poster"), pages.fronts.size())};
    }
    const NamedPaper& paper = PaperOf(*options.poster);
    const PadPage& page = pages.fronts.front();
    const Poster poster = PosterOn(paper.size, page.paper, OverlapOf(options));
    const std::string overlap = options.overlap.value_or(std::string(usualOverlap));
    const std::size_t sheets = poster.Columns() * poster.Rows();
    if (sheets == 0) {
        throw PadError{
            Message("a poster of %1 on %2 with an overlap of %3 has no room", page.name, paper.name, overlap)};
    }
    if (sheets > mostPosterSheets) {
        throw PadError{Message("a poster of %1 on %2 with an overlap of %3 takes %4 sheets, more than %5",
                               page.name, paper.name, overlap, sheets, mostPosterSheets)};
    }
    return poster;
}

Message SizeOf(const PaperSize& paper)
{
    return Message("%1 by %2 points", paper.width, paper.height);
}

/// Throws PadError unless the page has the size of the first.
void CheckSize(const PadPage& first, const PadPage& page)
{
    if (page.paper.width != first.paper.width || page.paper.height != first.paper.height) {
        throw PadError{Message("the pages of a sheet must be of one size, but %1 has %2 and %3 %4", first.name,
                               SizeOf(first.paper), page.name, SizeOf(page.paper))};
    }
}

}  // namespace

void CheckPadOptions(const PadOptions& options, const PadInputs& inputs)
{
    CheckNumbers(options);
    CheckTogether(options, inputs);
    FirstDateOf(options);
    CreepOf(options);
    OverlapOf(options);
    if (options.poster) {
        PaperOf(*options.poster);
    }
}

PadPlan PlanOf(const PadOptions& options, const PadInputs& inputs, const PadPages& pages)
{
    CheckPadOptions(options, inputs);
    const PadPage& first = pages.fronts.front();
    PadLayout layout;
    layout.pages = options.pages.value_or(inputs.hasTable ? pages.fronts.size() : layout.pages);
    layout.up = options.up;
    layout.hasNumbers = options.hasNumbers;
    layout.page = first.paper;
    layout.firstDate = FirstDateOf(options);
    // Sides that are cut, folded, stamped, or printed on both sides need pages of one size; a pad of single pages
    // does not.
    if (layout.up > 1 || layout.HasStamps() || options.isBooklet || pages.back) {
        for (const PadPage& page : pages.fronts) {
            CheckSize(first, page);
        }
    }
    if (pages.back) {
        CheckSize(first, *pages.back);
    }
    PadPlan plan{layout, pages.fronts.size(), pages.back.has_value(), inputs.hasTable};
    if (options.poster) {
        plan.sheets = PosterOf(options, pages);
    } else if (options.isBooklet) {
        plan.sheets = Booklet{layout, CreepOf(options)};
    }
    return plan;
}

}  // namespace linealis
