#include "app/PageCheck.h"

#include "PageSupport.h"
#include "app/Presets.h"

namespace linealis::test {
namespace {

Names WarningIds(Paper& paper)
{
    const PageFrame frame = paper.window->ReadPage().frame;
    Names ids;
    for (const PageWarnings& warnings :
         {FormWarnings(paper.window->form, frame), ContentWarnings(frame, paper.Content())}) {
        for (const PageWarning& warning : warnings) {
            EXPECT_GT(warning.text.size(), 10U);
            EXPECT_TRUE(warning.control.empty() || paper.window->form.Find(warning.control) != nullptr);
            ids.emplace_back(warning.id);
        }
    }
    return ids;
}

struct Fault {
    std::string id;
    std::string kind;
    Names faulty;
    Names mended;
};

void PrintTo(const Fault& fault, std::ostream* out)
{
    *out << fault.id;
}

class PageFault : public testing::TestWithParam<Fault> {};

TEST_P(PageFault, IsWarnedOfUntilItIsMended)
{
    const Fault& fault = GetParam();
    const auto count = [&](const Names& settings) {
        Paper paper(fault.kind, settings);
        const Names ids = WarningIds(paper);
        return std::count(ids.begin(), ids.end(), fault.id);
    };
    EXPECT_EQ(count(fault.faulty), 1);
    EXPECT_EQ(count(fault.mended), 0);
}

const std::vector<Fault> faults = {
    {"text", "polar", {"EditTitle=a (b"}, {"EditTitle=a (b)"}},
    {"text", "graph", {"EditTitle=C:\\new"}, {"EditTitle=C:/new"}},
    {"damaged", "polar", {"EditTitle=a (b"}, {"EditTitle=a b"}},
    {"margin", "grid", {"EditLeftMargin=.2", "EditTopMargin=.2"}, {"EditLeftMargin=.25", "EditTopMargin=.25"}},
    {"margin", "grid", {"PopupUnits=cm", "EditLeftMargin=.6"}, {"PopupUnits=cm", "EditLeftMargin=.635"}},
    {"room", "isometric", {"EditLeftMargin=9"}, {"EditLeftMargin=4"}},
    {"cell", "grid", {"EditVertSpacing=11"}, {"EditVertSpacing=9"}},
    {"cell", "hexagon", {"EditSize=8"}, {"EditSize=1"}},
    {"thin", "grid", {"EditHorzWeight=.05"}, {"EditHorzWeight=.1"}},
    {"thin", "grid", {"EditHorzWeight=0"}, {"EditHorzWeight=0", "CheckVertLines=off", "CheckHorzLines=off"}},
    {"scale", "grid", {"EditXScale=99"}, {"EditXScale=100.0"}},
    {"off-page", "grid", {"EditXScale=120"}, {"EditXScale=80"}},
    {"off-page", "isometric", {"PopupPaperSize=Custom", "EditCustomWidth=30", "EditCustomHeight=5"}, {}},
    {"numbers-overlap", "graph", {"EditXAxisSpacing=1", "EditXAxisMinimum=1000"}, {"EditXAxisSpacing=5"}},
    {"numbers-repeat",
     "graph",
     {"EditXAxisMinimum=1000000", "EditXAxisStep=.02", "EditXAxisSpacing=20"},
     {"EditXAxisMinimum=1000000", "EditXAxisStep=1", "EditXAxisSpacing=20"}},
    {"title-over-lines", "graph", {"EditXAxisTitle="}, {"EditXAxisTitle=", "EditYAxisTitle="}},
    {"title-off-page", "graph", {"EditTitleX=8"}, {"EditTitleX=2"}},
    {"numbers-off-page", "graph", {"EditBottomMargin=0", "EditYAxisMinimum=0"}, {"EditYAxisMinimum=0"}},
    {"custom-size", "dots", {"PopupPaperSize=Custom"}, {"PopupPaperSize=A4"}},
    {"paper-size",
     "dots",
     {"PopupPaperSize=Custom", "EditCustomWidth=201"},
     {"PopupPaperSize=Custom", "EditCustomWidth=199"}},
    {"huge-number", "grid", {"EditHorzWeight=9.3e18"}, {"EditHorzWeight=9.1e18"}},
    {"phase", "graph", {"EditXMajor=4"}, {"EditXMajor=10"}},
    {"phase", "graph", {"EditYAxisMinimum=-45.5"}, {"EditYAxisMinimum=-45"}},
    {"phase", "polar", {"EditNumMinorSpokes=50"}, {"EditNumMinorSpokes=60"}},
};

INSTANTIATE_TEST_SUITE_P(Pages, PageFault, testing::ValuesIn(faults));

TEST(PageCheck, IsQuietWhereAllIsWell)
{
    for (const std::string& kind : KindNames()) {
        Paper paper(kind);
        const Names expected = kind == "graph"     ? Names{"title-over-lines", "title-over-lines"}
                               : kind == "ternary" ? Names{"thin"}
                                                   : Names();
        EXPECT_EQ(WarningIds(paper), expected) << kind;
    }
    for (const Preset& preset : Presets()) {
        Paper paper(preset.kind);
        LayOver(preset, *paper.window, paper.platform);
        EXPECT_EQ(WarningIds(paper), Names()) << preset.id;
    }
}

/// Whether lines, made by operators, run through a title that fills the room from 100, 99 to 122.24, 114.
bool IsTitleOver(const std::string& lines)
{
    PageFrame frame;
    frame.paperWidth = frame.paperHeight = 200;
    const PageWarnings warnings =
        ContentWarnings(frame, "BT\r/F5 20 Tf\r100 100 Td\r(AB) Tj\rET\r" + lines + "S\r");
    return !warnings.empty() && warnings.front().id == "title-over-lines";
}

TEST(PageCheck, TitlesAreOverLinesThatMeetTheirRoom)
{
    for (const char* const over :
         {"0 114 m\r200 114 l\r", "200 99 m\r0 99 l\r", "100 0 m\r100 200 l\r", "122.24 200 m\r122.24 0 l\r",
          "95 94 m\r105 104 l\r", "90 99 m\r101 110 l\r95 115 l\r"}) {
        EXPECT_TRUE(IsTitleOver(over)) << over;
    }
    for (const char* const beside : {"0 114.1 m\r200 114.1 l\r", "0 98.9 m\r200 98.9 l\r", "99.9 0 m\r99.9 200 l\r",
                                     "122.3 0 m\r122.3 200 l\r", "0 105 m\r99 105 l\r", "110 0 m\r110 98 l\r"}) {
        EXPECT_FALSE(IsTitleOver(beside)) << beside;
    }
}

TEST(PageCheck, LooksForTitlesOverTheFirstMillionLines)
{
    std::string lines = "0 0 m\r";
    for (int i = 1; i < 1 << 20; ++i) {
        lines += "1 0 l\r";
    }
    EXPECT_TRUE(IsTitleOver(lines + "105 105 l\r"));
    EXPECT_FALSE(IsTitleOver(lines + "1 0 l\r105 105 l\r"));
}

TEST(PageCheck, LooksAtTheMarkerFile)
{
    const TemporaryFolder folder;
    const auto idsOf = [&](const std::string& text, const char* box) {
        WriteFile(folder / "m.txt", text);
        const Paper paper("graph", {std::string("CheckBoxMarkers=") + box});
        return MarkerWarnings(paper.window->form, FolderItem(folder / "m.txt")).size();
    };
    EXPECT_EQ(idsOf("1 2 a\n", "on"), 0U);
    EXPECT_EQ(idsOf("1 2 a\n", "off"), 1U);
    EXPECT_EQ(idsOf("1\t2\ta\n", "on"), 1U);
    EXPECT_EQ(idsOf("1,2,a\n", "on"), 1U);
    EXPECT_EQ(idsOf("\xFF\xFE"
                    "1",
                    "on"),
              1U);
}

TEST(PageCheck, CommandLineWritesNothing)
{
    const TemporaryFolder folder;
    const Finished text = Execute({LINEALIS_CLI_PATH, "generate", "grid", "--check", "--set", "EditXScale=50"});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.output, "grid: X Scale is 50 %: lengths on the page are not true\n");
    const Finished json =
        Execute({LINEALIS_CLI_PATH, "generate", "grid", "--check", "--json", "--set", "EditXScale=50"});
    EXPECT_NE(json.output.find("\"control\": \"EditXScale\""), std::string::npos) << json.output;
    EXPECT_EQ(Execute({LINEALIS_CLI_PATH, "generate", "grid", "--check", "-o", folder / "p.pdf"}).status, 2);
    EXPECT_FALSE(fs::exists(folder / "p.pdf"));
    const Finished made =
        Execute({LINEALIS_CLI_PATH, "generate", "grid", "--set", "EditXScale=50", "-o", folder / "p.pdf"});
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.errors, "linealis-cli: warning: grid: X Scale is 50 %: lengths on the page are not true\n");
}

}  // namespace
}  // namespace linealis::test
