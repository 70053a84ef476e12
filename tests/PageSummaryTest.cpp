#include "kinds/PageSummary.h"

#include "PageSupport.h"

#include <cmath>
#include <set>

namespace linealis::test {
namespace {

std::string SummaryOf(std::string_view kind, const Names& settings)
{
    const Paper paper(kind, settings);
    return PageSummary(*FindPaperKind(kind), paper.window->ReadPage()).English();
}

/// The numbers of a text, in order.
std::vector<double> NumbersIn(const std::string& text)
{
    std::vector<double> numbers;
    for (std::size_t at = 0; (at = text.find_first_of("0123456789", at)) != std::string::npos;) {
        std::size_t length = 0;
        numbers.push_back(std::stod(text.substr(at), &length));
        at += length;
    }
    return numbers;
}

/// The single lines that lie flat: how many there are, and their different middles to a hundredth of a point.
struct Flat : PageSink {
    std::set<std::int64_t> columns;
    std::size_t count = 0;

    bool Scale(double, double) override { return true; }
    bool Stroke(PagePath path, const PagePen&) override
    {
        const double length = std::abs(path[1].to.x - path[0].to.x);
        if (path.size() == 2 && path[0].to.y == path[1].to.y && length > 0.01) {
            ++count;
            columns.insert(std::llround((path[0].to.x + path[1].to.x) * 50.0));
        }
        return true;
    }
    bool Fill(PagePath, const PageColor&) override { return true; }
    bool FillAndStroke(PagePath, const PageColor&, const PagePen&) override { return true; }
    bool Text(const PageText&) override { return true; }
};

Flat FlatLinesOf(Paper& paper)
{
    Flat flat;
    ReadPage(paper.Content(), flat);
    return flat;
}

TEST(PageSummary, SaysPaperAndUnit)
{
    Paper paper("grid", {"PopupPaperSize=A4", "PopupUnits=cm", "EditVertSpacing=.5", "EditHorzSpacing=.4",
                         "PopupOrientation=Landscape"});
    EXPECT_EQ(PageSummary(*FindPaperKind("grid"), paper.window->ReadPage()).English(),
              "Grid, A4 landscape, 67 by 36 cells of 4 by 5 mm");
    paper.Set({"PopupPaperSize=Custom", "EditCustomWidth=20", "EditCustomHeight=30", "EditVertSpacing=99"});
    EXPECT_EQ(ShortPageSummary(paper.window->ReadPage()).English(), "299.86 by 199.67 mm, no cells of 4 by 990 mm");
    EXPECT_EQ(SummaryOf("graph", {"PopupYAxis=Log 3 Decades", "PopupXAxis=Hydraulic"}),
              "Graph Paper, Letter portrait, X hydraulic 1.85, Y 3 decades");
    EXPECT_EQ(SummaryOf("polar", {"EditNumSpokes=1"}), "Polar, Letter portrait, 8 circles, 1 spoke");
}

TEST(PageSummary, CountsWhatThePageShows)
{
    for (const char* const spacing : {".1", ".25", ".3333", ".7", "1.27"}) {
        const std::string size = spacing;
        Paper grid("grid", {"EditVertSpacing=" + size, "EditHorzSpacing=" + size});
        const Page page(grid.Content());
        const std::vector<double> cells = NumbersIn(grid.window->ReadPage().describe().English());
        EXPECT_EQ(cells.at(0) + 1.0, page.verticals);
        EXPECT_EQ(cells.at(1) + 1.0, page.horizontals);

        Paper hexagons("hexagon", {"EditSize=" + size, "CheckBoxFrame=off"});
        EXPECT_EQ(NumbersIn(hexagons.window->ReadPage().describe().English()).at(0),
                  FlatLinesOf(hexagons).columns.size())
            << size;

        Paper notes("cornell", {"EditHorzSpacing=" + size + "5", "CheckBoxTopicArea=off"});
        EXPECT_EQ(NumbersIn(notes.window->ReadPage().describe().English()).at(0), FlatLinesOf(notes).count) << size;
        Paper below("cornell", {"EditHorzSpacing=" + size + "5"});
        EXPECT_LE(NumbersIn(below.window->ReadPage().describe().English()).at(0), FlatLinesOf(notes).count) << size;

        Paper lines("lined", {"EditHorzSpacing=" + size + "1", "EditBlankTop=1"});
        EXPECT_EQ(NumbersIn(lines.window->ReadPage().describe().English()).at(0), FlatLinesOf(lines).count) << size;
    }
}

}  // namespace
}  // namespace linealis::test
