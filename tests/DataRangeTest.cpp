#include "PageSupport.h"
#include "graph/GraphDrawing.h"
#include "text/Numbers.h"

#include <nlohmann/json.hpp>

#include <cmath>

namespace linealis::test {
namespace {

using enum cli::Action::Kind;

/// Whether a number is 1, 2 or 5 times a power of ten.
bool IsIn125(double number)
{
    const double mantissa = number / std::pow(10.0, std::floor(std::log10(number) + 1e-9));
    return std::abs(mantissa - 1) < 1e-9 || std::abs(mantissa - 2) < 1e-9 || std::abs(mantissa - 5) < 1e-9;
}

class DataRanges : public testing::Test {
protected:
    /// The lines of the axis on the page, as its drawing counts them.
    static double LinesOf(const GraphAxis& axis, double usable)
    {
        return static_cast<double>(truncated(usable / axis.lineSpacing));
    }

    static void ExpectHolds(const GraphAxis& axis, double usable, double minimum, double maximum)
    {
        const double lines = LinesOf(axis, usable), line = 1e-6 * axis.step;
        EXPECT_EQ(axis.type, linear);
        EXPECT_LE(axis.minimum, minimum + line);
        EXPECT_GE(axis.minimum + lines * axis.step, maximum - line);
        EXPECT_GT(((maximum < 0 ? 0 : maximum) - minimum) / (lines * axis.step), 0.3) << "of the axis";
        EXPECT_TRUE(IsIn125(axis.step) && IsIn125(axis.majorStep * axis.step) &&
                    IsIn125(axis.numberSpacing * axis.step))
            << axis.step << " " << axis.majorStep << " " << axis.numberSpacing;
        EXPECT_EQ(std::fmod(axis.numberSpacing, axis.majorStep), 0.0);
        EXPECT_TRUE(MajorRhythm(axis).NextLineIsMajor()) << "the first number is at a major line";
    }
};

TEST_F(DataRanges, LieOnThePage)
{
    const std::vector<std::pair<std::string, std::string>> ranges = {
        {"0", "250"},      {"-35", "35"},      {"0", "1"},           {"0.3", "0.9"},         {"-0.6", "0.7"},
        {"3", "97"},       {"19", "39"},       {"-1e6", "-7e5"},     {"1e-9", "3e-9"},       {"0", "1e15"},
        {"-7", "123456"},  {"0.1", "0.13"},    {"999990", "1e6"},    {"1000000", "1000010"}, {"-0.01", "1000"},
        {"273.15", "373"}, {"-273.15", "1e3"}, {"12345.6", "12360"}, {"-2.2", "-1.1"},       {"0,5", "7,25"}};
    for (const Names& paper : {Names{},
                               {"PopupOrientation=Landscape"},
                               {"PopupUnits=cm", "PopupPaperSize=A4"},
                               {"PopupUnits=cm", "PopupPaperSize=A3", "PopupXAxis=Hydraulic"}}) {
        for (const char* const fineness : {"coarse", "medium", "fine"}) {
            for (const auto& [minimum, maximum] : ranges) {
                SCOPED_TRACE(minimum + ":" + maximum + " " + fineness + (paper.empty() ? "" : paper.back()));
                Paper graph("graph", paper);
                const std::string range = minimum + ":" + maximum;
                graph.Do({{XRange, range}, {YRange, range}, {cli::Action::Kind::Fineness, fineness}});
                const GraphPage page = Read(dynamic_cast<const GraphForm&>(graph.window->form));
                ExpectHolds(page.x, page.frame.UsableWidth(), Val(minimum), Val(maximum));
                ExpectHolds(page.y, page.frame.UsableHeight(), Val(minimum), Val(maximum));
            }
        }
    }
}

TEST_F(DataRanges, OnALogAxisTakeWholeDecades)
{
    struct Case {
        const char* range;
        int decades;
        const char* first;
    };
    for (const Names& paper : {Names{}, {"PopupUnits=cm", "PopupPaperSize=A4"}}) {
        for (const auto& [range, decades, first] : std::vector<Case>{{"0.1:1000:log", 4, "0.1"},
                                                                     {"2:5:LOG", 1, "1"},
                                                                     {"1:10:log", 1, "1"},
                                                                     {"30:2e5:log", 5, "10"},
                                                                     {"1:1000:log", 3, "1"}}) {
            Paper graph("graph", paper);
            graph.Do({{XRange, range}, {YRange, range}});
            const GraphPage page = Read(dynamic_cast<const GraphForm&>(graph.window->form));
            EXPECT_TRUE(page.x.type == decades && page.y.type == decades) << range;
            EXPECT_EQ(graph.form.Text("EditXAxisMinimum"), first);
            const double unit = paper.empty() ? 18 : pointsPerCm / 2;
            const double size = LinesOf(page.x, page.frame.UsableWidth()) * page.x.lineSpacing / decades / unit;
            EXPECT_NEAR(size, std::round(size), 1e-4)
                << range << " has decades of whole quarters of an inch or 5 mm";
        }
    }
}

TEST_F(DataRanges, AreDescribedAndRefused)
{
    Paper graph("graph");
    const std::string before = graph.Saved();
    RangeWizard& wizard = *graph.window->GetRangeWizard();
    NamedForm fields{wizard.Fields()};
    const auto problem = [&](const char* minimum, const char* maximum, bool isLog) {
        fields.Type("EditMinY", minimum);
        fields.Type("EditMaxY", maximum);
        wizard.Fields().Get<CheckBox>("CheckLogY").SetValue(isLog);
        wizard.PushButton1_Action();
        EXPECT_EQ(graph.Saved(), before) << minimum << ":" << maximum;
        return wizard.Problem().English();
    };
    EXPECT_EQ(problem("", "", false), "enter the range of at least one axis");
    EXPECT_EQ(problem("", "3", false), "the minimum of the Y range must be a number, not ''");
    EXPECT_EQ(problem("1", "1 m", false), "the maximum of the Y range must be a number, not '1 m'");
    EXPECT_EQ(problem("5", "5", false), "the Y range 5 to 5 is empty: its minimum must be below its maximum");
    EXPECT_EQ(problem("0", "9", true), "the Y range 0 to 9 cannot be logarithmic: its minimum must be above 0");
    EXPECT_EQ(problem("0.2", "2e5", true),
              "the Y range 0.2 to 200000 needs 7 decades, from 0.1 to 1000000; a logarithmic axis has 1 to 5");
    EXPECT_EQ(problem("0", "1e300", false).substr(0, 10), "the Y rang");
    EXPECT_EQ(
        problem("-100", "-80", false),
        "the Y range -100 to -80 is too far below 0, where the page draws the axis lines; its maximum must be "
        "at least -75, or Show Axes must be off");
    EXPECT_EQ(
        problem("1000000.1", "1000000.2", false),
        "the Y range 1000000.1 to 1000000.2 is too narrow: numbers on a page have up to 7 digits, so it must be "
        "at least 10 wide");
}

TEST_F(DataRanges, OnTheCommandLine)
{
    const auto call = [](const Names& more) {
        Names words = {LINEALIS_CLI_PATH, "form"};
        words.insert(words.end(), more.begin(), more.end());
        return Execute(words);
    };
    const Finished shown = call({"graph", "--x-range", "-40:120", "--fineness", "coarse", "--y-range", "1:500:log",
                                 "--set", "PopupUnits=cm", "--set", "PopupPaperSize=A4"});
    ASSERT_EQ(shown.status, 0) << shown.errors;
    const auto controls = nlohmann::json::parse(shown.output)["controls"];
    std::string values;
    for (const char* const name : {"EditXAxisMinimum", "EditXAxisStep", "EditXMajor", "EditXAxisSpacing",
                                   "EditXLineSpacing", "PopupYAxis", "EditYAxisMaximum"}) {
        values += controls[name]["value"].get<std::string>() + " ";
    }
    EXPECT_EQ(values, "-40 5 2 4 2 Log 3 Decades 1000 ");
    for (const auto& [words, error] : std::vector<std::pair<Names, std::string>>{
             {{"graph", "--x-range", "7"}, "--x-range takes MIN:MAX or MIN:MAX:log, not '7'"},
             {{"graph", "--x-range", "1:2:lin"}, "--x-range takes MIN:MAX or MIN:MAX:log, not '1:2:lin'"},
             {{"graph", "--y-range", "0:7:log"}, "must be above 0"},
             {{"graph", "--fineness", "fine"}, "--fineness goes with --x-range or --y-range"},
             {{"graph", "--fineness", "finest"}, "possible: fine, coarse, medium"},
             {{"grid", "--x-range", "0:7"}, "--x-range works with graph, not with grid"}}) {
        const Finished refused = call(words);
        EXPECT_EQ(refused.status, 2);
        EXPECT_NE(refused.errors.find(error), std::string::npos) << refused.errors;
    }
}

}  // namespace
}  // namespace linealis::test
