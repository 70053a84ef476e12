#include "pipeline/page/PaperSizes.h"

#include "pdf/MyPDFGenerator.h"

#include <algorithm>
#include <array>

namespace linealis {

namespace {

using Pdf = MyPDFGenerator;

constexpr std::array<NamedPaper, 12> namedPapers = {{
    {"Letter", {Pdf::letterWidth, Pdf::letterHeight}},
    {"Legal", {Pdf::legalWidth, Pdf::legalHeight}},
    {"Ledger", {Pdf::ledgerWidth, Pdf::ledgerHeight}},
    {"A0", {Pdf::A0Width, Pdf::A0Height}},
    {"A1", {Pdf::A1Width, Pdf::A1Height}},
    {"A2", {Pdf::A2Width, Pdf::A2Height}},
    {"A3", {Pdf::A3Width, Pdf::A3Height}},
    {"A4", {Pdf::A4Width, Pdf::A4Height}},
    {"A5", {Pdf::A5Width, Pdf::A5Height}},
    {"A6", {Pdf::A6Width, Pdf::A6Height}},
    {"B5", {Pdf::B5Width, Pdf::B5Height}},
    {"B (USA)", {Pdf::p11x17width, Pdf::p11x17height}},
}};

std::string_view NameOf(std::int64_t width, std::int64_t height)
{
    const std::span<const NamedPaper> papers = namedPapers;
    const auto found = std::find_if(papers.begin(), papers.end(), [&](const NamedPaper& paper) {
        return paper.size.width == width && paper.size.height == height;
    });
    return found == papers.end() ? std::string_view() : found->name;
}

}  // namespace

std::span<const NamedPaper> NamedPapers()
{
    return namedPapers;
}

std::string_view NameOfPaper(const PaperSize& size)
{
    const std::string_view name = NameOf(size.width, size.height);
    return name.empty() ? NameOf(size.height, size.width) : name;
}

}  // namespace linealis
