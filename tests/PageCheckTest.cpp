#include "check/PageCheck.h"

#include "PageSupport.h"
#include "kinds/Presets.h"

namespace linealis::test {
namespace {

Names WarningIds(Paper& paper)
{
    const PaperForm& form = paper.window->form;
    Names ids;
    for (const PageWarning& warning : WarningsOf(paper.window->DrawPage())) {
        EXPECT_GT(warning.text.English().size(), 10U);
        EXPECT_TRUE(warning.control.empty() || form.Find(warning.control) != nullptr);
        ids.emplace_back(warning.id);
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
    {"margin", "grid", {"PopupUnits=cm", "EditLeftMargin=.6345"}, {"PopupUnits=cm", "EditLeftMargin=.6349"}},
    {"room", "isometric", {"EditLeftMargin=9"}, {"EditLeftMargin=4"}},
    {"cell", "grid", {"EditVertSpacing=11"}, {"EditVertSpacing=9"}},
    {"cell", "hexagon", {"EditSize=8"}, {"EditSize=1"}},
    {"thin", "grid", {"EditHorzWeight=.05"}, {"EditHorzWeight=.1"}},
    {"thin", "grid", {"EditHorzWeight=0"}, {"EditHorzWeight=0", "CheckHorzLines=off"}},
    {"thin", "ternary", {"EditMinorLineThickness=.04"}, {"EditMinorLineThickness=.1"}},
    {"thin", "grid", {"EditXScale=10", "EditHorzWeight=.6"}, {"EditXScale=10", "EditHorzWeight=1"}},
    {"field", "grid", {"EditTopMargin=abc"}, {"EditTopMargin=1"}},
    {"field", "grid", {"EditVertSpacing=0"}, {"EditVertSpacing=.1"}},
    {"empty", "grid", {"EditVertSpacing=0"}, {"EditVertSpacing=1"}},
    {"empty", "dots", {"EditHorzSpacing=-1"}, {"EditHorzSpacing=1"}},
    {"empty", "grid", {"CheckVertLines=off", "CheckHorzLines=off", "BackgroundColorCanvas=#FF0000"}, {}},
    {"ink", "grid", {"EditVertSpacing=.005"}, {"EditVertSpacing=.005", "CheckHorzLines=off"}},
    {"ink", "hexagon", {"EditSize=2", "EditLineThickness=144"}, {"EditSize=2", "EditLineThickness=143"}},
    {"ink", "lined", {"EditHorzSpacing=200"}, {"EditHorzSpacing=100"}},
    {"ink", "graph", {"EditYLineSpacing=720"}, {"EditYLineSpacing=719"}},
    {"ink", "polar", {"EditNumCircles=600"}, {"EditNumCircles=500"}},
    {"ink", "ternary", {"EditMajorDivisions=500"}, {"EditMajorDivisions=400"}},
    {"scale", "grid", {"EditXScale=99"}, {"EditXScale=100.0"}},
    {"off-page", "grid", {"EditXScale=120"}, {"EditXScale=80"}},
    {"off-page", "isometric", {"PopupPaperSize=Custom", "EditCustomWidth=30", "EditCustomHeight=5"}, {}},
    {"numbers-overlap", "graph", {"EditXAxisSpacing=1", "EditXAxisMinimum=1000"}, {"EditXAxisSpacing=5"}},
    {"numbers-repeat",
     "graph",
     {"EditXAxisMinimum=1000000", "EditXAxisStep=.02", "EditXAxisSpacing=20"},
     {"EditXAxisMinimum=1000000", "EditXAxisStep=1", "EditXAxisSpacing=20"}},
    {"title-over-lines", "graph", {"EditXAxisTitleX=3"}, {"EditXAxisTitle=Time"}},
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
        EXPECT_EQ(WarningIds(paper), Names()) << kind;
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
    PaperPage page;
    page.frame.paperWidth = page.frame.paperHeight = 200;
    const PageWarnings warnings =
        ContentWarnings(page, "BT\r/F5 20 Tf\r100 100 Td\r(AB) Tj\rET\r" + lines + "S\r", {});
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

TEST(PageCheck, NumbersTheFaultyLinesOfAMarkerFile)
{
    const TemporaryFolder folder;
    const auto faultsOf = [&] {
        Names found;
        for (const Message& fault : MarkerFaults(MarkerFile(FolderItem(folder / "m.txt")))) {
            found.push_back(fault.English());
        }
        return found;
    };
    WriteFile(folder / "m.txt", "1 2 a\r\none 2 b\r\n\r\n1  2 c\r\n-1,5 2e1\r\n3 4 d e f");
    EXPECT_EQ(faultsOf(),
              (Names{"Marker file, line 2: “one” is not a number", "Marker file, line 4: a value is missing",
                     "Marker file, line 5: there is no text"}));
    std::string lines;
    for (int i = 0; i < 100; ++i) {
        lines += "x 0 a\n";
    }
    WriteFile(folder / "m.txt", lines);
    const Names found = faultsOf();
    EXPECT_EQ(found.back(), "Marker file: " + std::to_string(101 - found.size()) + " more lines with faults");
}

TEST(PageCheck, CommandLineWritesNothing)
{
    const TemporaryFolder folder;
    const Finished text = Execute({LINEALIS_CLI_PATH, "generate", "grid", "--check", "--set", "EditXScale=50"});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.output, "grid: X Scale is 50%: lengths on the page are not true to size\n");
    const Finished json =
        Execute({LINEALIS_CLI_PATH, "generate", "grid", "--check", "--json", "--set", "EditXScale=50"});
    EXPECT_NE(json.output.find("\"control\": \"EditXScale\""), std::string::npos) << json.output;
    EXPECT_EQ(Execute({LINEALIS_CLI_PATH, "generate", "grid", "--check", "--strict"}).status, 0);
    EXPECT_EQ(
        Execute({LINEALIS_CLI_PATH, "generate", "grid", "--check", "--strict", "--set", "EditXScale=50"}).status,
        1);
    EXPECT_EQ(Execute({LINEALIS_CLI_PATH, "generate", "grid", "--check", "-o", folder / "p.pdf"}).status, 2);
    EXPECT_FALSE(fs::exists(folder / "p.pdf"));
    const Finished made =
        Execute({LINEALIS_CLI_PATH, "generate", "grid", "--set", "EditXScale=50", "-o", folder / "p.pdf"});
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.errors,
              "linealis-cli: warning: grid: X Scale is 50%: lengths on the page are not true to size\n");
}

/// What the command line says of the arguments, without its own name.
std::string Said(Names arguments)
{
    const TemporaryFolder folder;
    WriteFile(folder / "part.json", R"({"controls": {"custom-height": 5, "EditXScale": "100"}})");
    WriteFile(folder / "whole.json", Execute({LINEALIS_CLI_PATH, "form", "grid", "--set", "units=cm"}).output);
    arguments.insert(arguments.begin(), LINEALIS_CLI_PATH);
    for (std::string& argument : arguments) {
        argument = argument.starts_with("DIR/") ? (folder / argument.substr(4)).string() : argument;
    }
    const Finished made = Execute(arguments);
    EXPECT_EQ(made.status, 0) << made.errors;
    const std::string name = "linealis-cli: warning: ";
    return made.errors.starts_with(name) ? made.errors.substr(name.size()) : made.errors;
}

TEST(PageCheck, CommandLineSaysWhatHasNoEffect)
{
    const std::vector<std::pair<std::string, Names>> expected = {
        {"grid: Custom width has no effect: Paper Size is not Custom\n",
         {"generate", "grid", "--set", "custom-width=5", "-o", "DIR/p.pdf"}},
        {"graph: X Grid, Hydraulic Exponent has no effect: the X axis is not hydraulic\n",
         {"form", "graph", "--set", "EditXHydraulicExponent=2"}},
        {"graph: No markers are drawn: there is no --markers FILE\n",
         {"generate", "graph", "--set", "CheckBoxMarkers=on", "-o", "DIR/p.pdf"}},
        {"grid: Custom height has no effect: Paper Size is not Custom\n",
         {"generate", "grid", "--form", "DIR/part.json", "-o", "DIR/p.pdf"}},
        {"", {"generate", "grid", "--form", "DIR/whole.json", "-o", "DIR/p.pdf"}},
        {"grid: Paper Size has no effect: the page has the size of the screen; --fit keeps its own\n",
         {"generate", "grid", "--device", "300x400@200", "--set", "paper-size=A5", "-o", "DIR/p.png"}},
        {"", {"generate", "grid", "--device", "300x400@200", "--fit", "--set", "paper-size=A5", "-o", "DIR/p.png"}},
        {"--dpi has no effect on a page that is not a PNG file\n",
         {"generate", "grid", "--dpi", "300", "-o", "DIR/p.svg"}},
        {"graph: the wizard's Min X: \u201Cabc\u201D is not a number and counts as 0\n",
         {"form", "graph", "--wizard", "EditMinX=abc"}},
        {"", {"generate", "grid", "--dpi", "30", "--transparent", "-o", "DIR/p.png"}},
        {"", {"generate", "grid", "--set", "custom-width=5", "--set", "paper-size=Custom", "--check"}},
        {"", {"generate", "graph", "--type", "EditXAxisMaximum=50", "-o", "DIR/p.pdf"}},
    };
    for (const auto& [words, arguments] : expected) {
        EXPECT_EQ(Said(arguments), words);
    }
}

TEST(PageCheck, SaveSaysWhatASettingsFileCannotKeep)
{
    const auto lost = [](const Names& settings, const char* kind) {
        Names arguments = {"save", kind, "-o", "DIR/s"};
        for (const std::string& setting : settings) {
            arguments.insert(arguments.end(), {"--set", setting});
        }
        const std::string said = Said(arguments), words = "a settings file does not keep ";
        const std::size_t place = said.find(words);
        return place == std::string::npos ? "" : said.substr(place + words.size());
    };
    EXPECT_EQ(lost({"PopupPaperSize=Custom", "EditCustomWidth=5"}, "dots"), "Custom width\n");
    EXPECT_EQ(lost({"CheckBoxFrame=off"}, "isometric"), "Draw Frame\n");
    EXPECT_EQ(lost({"EditMinorLineThickness=.3"}, "trapezoid"),
              "Minor Line Weight of the frame, the vertical and the horizontal lines\n");
    EXPECT_EQ(lost({"EditTitle=T", "PopupFont1=Courier", "TextColorCanvas=#112233"}, "polar"),
              "Font, Text Color, Title\n");
    EXPECT_EQ(lost({"EditTopic=" + std::string(256, 'x')}, "cornell"), "Topic\n");
    EXPECT_EQ(lost({"EditTopic=" + std::string(255, 'x')}, "cornell"), "");
    EXPECT_EQ(lost({"EditHorzWeight=.7"}, "grid"), "");
}

}  // namespace
}  // namespace linealis::test
