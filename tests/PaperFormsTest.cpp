#include "PageSupport.h"
#include "pipeline/page/PageJob.h"

#include <map>

// What the forms of the special papers do besides being drawn. Their pages are among the golden ones.

namespace linealis::test {
namespace {

TEST(RuledPapers, CountsPerUnitAreCorrectedInTheFormAndNotConverted)
{
    const std::map<std::string, Names> fields = {{"lined", {"EditHorzSpacing"}},
                                                 {"engineering", {"EditHorzSpacing", "EditVertiSpacing"}},
                                                 {"cornell", {"EditHorzSpacing"}}};
    for (const auto& [kind, names] : fields) {
        Paper paper(kind);
        const std::string usual = paper.Content();
        for (const std::string& name : names) {
            for (const char* const nothing : {"0", "-3", "", "five"}) {
                EXPECT_EQ(paper.Draw({name + "=" + nothing}).content, usual) << kind;
                EXPECT_EQ(paper.form.Text(name), "5");
            }
        }
        EXPECT_EQ(paper.form["StaticHorzUnit"].caption, "per inch");
        paper.Set({"PopupUnits=cm"});
        EXPECT_EQ(paper.form[kind == "cornell" ? "StaticHorzUnit" : "StaticvertUnit"].caption, "per cm");
        EXPECT_EQ(paper.form["StaticHorzUnit"].caption, "per cm");
        EXPECT_EQ(paper.form.Text("EditHorzSpacing") + paper.form.Text("EditTopMargin"), "51.27");
    }
}

TEST(MarkedPapers, EachBoxEnablesTheWeightOfTheOtherRow)
{
    for (const char* const kind : {"dots", "crosses"}) {
        SCOPED_TRACE(kind);
        Paper paper(kind);
        const auto enabled = [&](const char* box, const char* field, const char* caption) {
            paper.Set({box});
            EXPECT_EQ(paper.form[field].enabled, paper.form[caption].enabled);
            return paper.form[field].enabled;
        };
        EXPECT_FALSE(enabled("CheckVertLines=off", "EditHorzWeight", "StaticTextVLines"));
        EXPECT_FALSE(enabled("CheckHorzLines=off", "EditVertWeight", "StaticTextHLines"));
        EXPECT_TRUE(enabled("CheckHorzLines=on", "EditVertWeight", "StaticTextHLines"));
        EXPECT_FALSE(paper.form["EditHorzWeight"].enabled);
        EXPECT_TRUE(enabled("CheckVertLines=on", "EditHorzWeight", "StaticTextVLines"));
    }
}

TEST(MarkedPapers, TheSizeOfACrossIsNotConverted)
{
    const Paper paper("crosses", {"PopupUnits=cm"});
    EXPECT_EQ(paper.form.Text("EditHorzSpacing") + paper.form.Text("EditCrossWidth"), "1.27.15");
}

/// How much of a page is drawn without a turn for whatever else waits, at most: bytes of the content.
std::size_t LongestWithoutTurn(const std::string& kind, const Names& settings)
{
    Paper paper(kind, {"PopupPaperSize=A0"});
    paper.Set(settings);
    const PaperPage page = paper.window->ReadPage();
    MyPDFGenerator* drawn = nullptr;
    std::size_t last = 0, longest = 0;
    const auto look = [&] {
        const std::size_t now = drawn->Stream().size();
        longest = std::max(longest, now - std::min(last, now));
        last = now;
    };
    Turns turns(look);
    MyPDFGenerator pdf(turns);
    drawn = &pdf;
    DrawContent(page, pdf, turns, {});
    look();
    EXPECT_GT(last, 500'000U) << "so small a page shows nothing";
    return longest;
}

TEST(DensePapers, TakeTurnsInEveryLoop)
{
    const Names flat = {"EditVertSpacing=.002", "EditHorzSpacing=2"},
                upright = {"EditVertSpacing=2", "EditHorzSpacing=.002"};
    const Names polar = {"EditNumCircles=600", "EditNumSpokes=2000", "EditNumMinorSpokes=2000", "EditMinorStart=0"};
    std::vector<std::pair<std::string, Names>> pages = {
        {"engineering", {"EditHorzSpacing=1000", "EditVertiSpacing=5"}},
        {"engineering", {"EditHorzSpacing=5", "EditVertiSpacing=1000"}},
        {"lined", {"EditHorzSpacing=1000"}},
        {"cornell", {"EditHorzSpacing=1000"}},
        {"cornell", {"EditHorzSpacing=1000", "CheckGrid=on"}},
        {"isometric", {"EditSize=.005"}},
        {"axonometric", {"EditSize=.005"}},
        {"trapezoid", {"EditSize=.005"}},
        {"hexagon", {"EditSize=.2"}},
        {"polar", polar},
        {"ternary", {"EditMajorDivisions=1000", "PopupScaling=Axis"}},
        {"ternary", {"EditMajorDivisions=1000", "PopupScaling=Center"}},
        {"graph", {"EditXLineSpacing=900", "EditXAxisSpacing=1", "EditXMajor=1"}},
        {"graph", {"EditYLineSpacing=900", "EditYAxisSpacing=1", "EditYMajor=1"}},
    };
    for (const char* const kind : {"grid", "brick", "dots", "crosses"}) {
        for (Names spacing : {flat, upright}) {
            if (kind == std::string("dots") || kind == std::string("crosses")) {
                spacing.insert(spacing.end(), {"CheckVertLines=on", "CheckHorzLines=on"});
            }
            pages.emplace_back(kind, spacing);
        }
    }
    constexpr std::size_t hundredNumbersInTheirBoxes = 100'000;
    for (const auto& [kind, settings] : pages) {
        const std::size_t longest = LongestWithoutTurn(kind, settings);
        EXPECT_LT(longest, hundredNumbersInTheirBoxes) << kind << " " << settings.front();
    }
}

TEST(TernaryPaper, TheScalingEnablesMaximumAndFlip)
{
    Paper paper("ternary");
    std::string enabled;
    for (const char* const scaling : {"PopupScaling=None", "PopupScaling=Axis", "PopupScaling=Center"}) {
        enabled += paper.form["EditAxisMaximum"].enabled ? "maximum " : "";
        enabled += paper.form["CheckBoxFlip"].enabled ? "flip " : "";
        paper.Set({scaling});
    }
    enabled += paper.form["EditAxisMaximum"].enabled ? "maximum" : "";
    EXPECT_EQ(enabled, "maximum flip maximum");
}

TEST(CornellPaper, SharesAreCorrectedInTheForm)
{
    Paper paper("cornell");
    const auto shares = [&](const Names& typed) {
        paper.Draw(typed);
        return paper.form.Text("EditNoteWidth") + " " + paper.form.Text("EditNoteHeight");
    };
    EXPECT_EQ(shares({"EditNoteWidth=101", "EditNoteHeight=-.5"}), "100 0");
    EXPECT_EQ(shares({"EditNoteWidth=-5", "EditNoteHeight=1e9"}), "0 100");
    EXPECT_EQ(shares({"EditNoteWidth=100.0", "EditNoteHeight=-0"}), "100.0 -0") << "as typed";
}

}  // namespace
}  // namespace linealis::test
