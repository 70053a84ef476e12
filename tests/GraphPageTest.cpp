#include "PageSupport.h"

#include <cmath>

namespace linealis::test {
namespace {

constexpr double axisWeight = 1.5;
const std::string black = "0.00 0.00 0.00", red = "1.00 0.00 0.00", blue = "0.00 0.00 1.00";

class GraphPage : public testing::Test, protected Paper {
protected:
    GraphPage() : Paper("graph") {}
};

std::vector<Path> GridLines(const Page& page, bool vertical)
{
    return page.Paths([=](const Path& path) {
        return (vertical ? path.IsVertical() : path.IsHorizontal()) && path.width != axisWeight;
    });
}
std::vector<Path> Across(const Page& page)
{
    return GridLines(page, false);
}
std::vector<Path> Up(const Page& page)
{
    return GridLines(page, true);
}

/// Which of the lines have the width, counted from 1; not more than the first few.
std::vector<int> Wide(const std::vector<Path>& lines, double width = 0.7, std::size_t atMost = 1000)
{
    std::vector<int> numbers;
    for (std::size_t i = 0; i < lines.size() && numbers.size() < atMost; ++i) {
        if (lines[i].width == width) {
            numbers.push_back(static_cast<int>(i) + 1);
        }
    }
    return numbers;
}

void ExpectNear(const Point& point, double x, double y)
{
    EXPECT_NEAR(point.x, x, 1e-3);
    EXPECT_NEAR(point.y, y, 1e-3);
}

void ExpectLine(const Path& line, double x1, double y1, double x2, double y2)
{
    ASSERT_EQ(line.points.size(), 2U);
    ExpectNear(line.points[0], x1, y1);
    ExpectNear(line.points[1], x2, y2);
}

Names TextsOf(const std::vector<ShownText>& texts)
{
    Names names;
    for (const ShownText& text : texts) {
        names.push_back(text.text);
    }
    return names;
}

Names Written(const Page& page, std::size_t first, std::size_t count)
{
    Names texts = TextsOf(page.texts);
    texts.resize(std::min(texts.size(), first + count));
    texts.erase(texts.begin(), texts.begin() + static_cast<std::ptrdiff_t>(std::min(first, texts.size())));
    return texts;
}

const ShownText& TextOf(const Page& page, const std::string& text)
{
    const auto found =
        std::find_if(page.texts.begin(), page.texts.end(), [&](const auto& t) { return t.text == text; });
    if (found == page.texts.end()) {
        throw std::out_of_range("no text " + text);
    }
    return *found;
}

TEST_F(GraphPage, DefaultsOnLetter)
{
    const Page page = Draw();
    const std::vector<Path> up = Up(page), across = Across(page);
    ASSERT_EQ(up.size(), 71U);
    ASSERT_EQ(across.size(), 91U);
    for (std::size_t i = 0; i < 91; ++i) {
        const double place = 7.2 * static_cast<double>(i), width = i % 5 == 0 ? 0.7 : 0.1;
        ExpectLine(across[i], 54, 36 + place, 558, 36 + place);
        EXPECT_EQ(across[i].width, width) << i;
        if (i < 71) {
            ExpectLine(up[i], 54 + place, 36, 54 + place, 684);
            EXPECT_EQ(up[i].width, width) << i;
        }
    }
    const std::vector<Path> axes = page.OfWidth(axisWeight);
    ASSERT_EQ(axes.size(), 2U);
    ExpectLine(axes[0], 54, 360, 558, 360);
    ExpectLine(axes[1], 306, 36, 306, 684);
    ASSERT_EQ(page.texts.size(), 15U + 19U + 3U);
    EXPECT_EQ(Written(page, 0, 9), (Names{"-35", "-30", "-25", "-20", "-15", "-10", "-5", "0", "5"}));
    EXPECT_EQ(Written(page, 14, 3), (Names{"35", "-45", "-40"}));
    EXPECT_EQ(Written(page, 33, 4), (Names{"45", "X-Axis Title", "Y-Axis Title", "A Sample Graph Paper"}));
    ExpectNear(page.texts[0].at, 54 - 10.8, 360 - 7.56 - 2);
    ExpectNear(page.texts[14].at, 558 - 7.2, 360 - 7.56 - 2);
    ExpectNear(page.texts[15].at, 306 - 21.6 - 5, 36 - 3.78);
    ExpectNear(page.texts[33].at, 306 - 14.4 - 5, 684 - 3.78);
    ExpectNear(page.texts[34].at, 2.9 * 72 + 54, 792 - 6.4 * 72);
    ExpectNear(page.texts[35].at, 3.1 * 72 + 54, 792 - 4 * 72);
    ExpectNear(page.texts[36].at, 187.2, 720);
    EXPECT_TRUE(page.texts[0].font == "/F5" && page.texts[0].size == 12 && page.texts[15].size == 12);
    EXPECT_TRUE(page.texts[34].size == 16 && page.texts[35].size == 16 && page.texts[36].size == 20);
    EXPECT_EQ(Complaints(file.Path()), "");
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_EQ(Generate(), page.operators) << "nothing is kept between pages";
}

TEST_F(GraphPage, MajorLinesFallOnMultiplesFromZero)
{
    const struct {
        std::string minimum, step, major;
        std::vector<int> lines;
    } cases[] = {
        {"-35", "1", "5", {1, 6, 11}},   {"-7", "1", "5", {3, 8, 13}},   {"2", "1", "5", {4, 9, 14}},
        {"-3.5", ".5", "5", {3, 8, 13}}, {"-10", "1", "7", {4, 11, 18}}, {"-50", "1", "20", {11, 31, 51}},
        {"1.5", ".5", "4", {2, 6, 10}},  {"0", "0", "5", {1, 6, 11}},    {"-35", "1", "2.5", {1, 3, 5}},
        {"-35", "1", "1", {1, 2, 3}},    {"-2.5", "1", ".5", {1, 2, 3}}, {"-35", "1", "1e300", {}},
        {"-35", "1", "0", {}},           {"-35", "1", "-5", {}},         {"-35", "1", "", {}},
    };
    for (const auto& [minimum, step, major, lines] : cases) {
        SCOPED_TRACE(minimum + " " + step + " " + major);
        for (const std::string axis : {"X", "Y"}) {
            Set({"Edit" + axis + "AxisMinimum=" + minimum, "Edit" + axis + "AxisStep=" + step,
                 "Edit" + axis + "Major=" + major});
        }
        const Page page = Draw();
        EXPECT_EQ(Wide(Up(page), 0.7, 3), lines);
        EXPECT_EQ(Wide(Across(page), 0.7, 3), lines);
        EXPECT_EQ(Up(page).size() + Across(page).size(), 71U + 91U);
    }
    EXPECT_EQ(Up(Draw({"EditXAxisMinimum=-1e300", "EditXMajor=5"})).size(), 71U) << "it ends";
}

TEST_F(GraphPage, WeightsAndColours)
{
    const Page page =
        Draw({"EditXLineThickness=.2", "EditYLineThickness=.3", "EditXMajorWeight=.8", "EditYMajorWeight=.9",
              "EditXAxisWeight=3", "EditYAxisWeight=2", "LineColorCanvas=#0000FF", "MajorLineColorCanvas=#FF0000",
              "PopupFont1=Times Bold Italic"});
    const auto looks = [&](double width, bool vertical, const std::string& color, std::size_t count) {
        const std::vector<Path> lines = page.OfWidth(width);
        return lines.size() == count && lines[0].IsVertical() == vertical && lines[0].color == color;
    };
    EXPECT_TRUE(looks(0.2, true, blue, 56) && looks(0.3, false, blue, 72));
    EXPECT_TRUE(looks(0.8, true, red, 15) && looks(0.9, false, red, 19));
    EXPECT_TRUE(looks(2, false, black, 1) && looks(3, true, black, 1))
        << "each axis has the weight of the other row";
    for (const ShownText& text : page.texts) {
        EXPECT_TRUE(text.color == black && text.font == "/F12") << text.text;
    }
}

TEST_F(GraphPage, AxisLinesStandAtZero)
{
    const auto axes = [](const Page& page) {
        const std::vector<Path> lines = page.OfWidth(axisWeight);
        return Point{lines.at(1).points.at(0).x, lines.at(0).points.at(0).y};
    };
    Page page = Draw({"EditXAxisMinimum=10", "EditYAxisMinimum=1"});
    ExpectNear(axes(page), 54, 36);  // not at the value zero, which the graph does not have
    EXPECT_EQ(Written(page, 0, 2), (Names{"10", "15"}));

    Set({"EditXAxisMinimum=-50", "EditYAxisMinimum=-45"});
    form.Type("EditXAxisMaximum", "-10");
    page = Draw();
    EXPECT_EQ(Up(page).size(), 41U);
    EXPECT_NEAR(axes(page).x, 54 + 50 * 12.6, 0.01) << "beyond the far edge: nothing clamps it";
    EXPECT_EQ(Written(page, 0, 9), (Names{"-50", "-45", "-40", "-35", "-30", "-25", "-20", "-15", "-10"}));
    EXPECT_NEAR(TextOf(page, "45").at.x, axes(page).x - 14.4 - 5, 1e-3) << "the Y numbers stay beside it";

    Set({"EditXAxisMinimum=-35", "EditXLineSpacing=10", "EditYLineSpacing=10"});
    page = Draw({"PopupXAxis=Log 3 Decades"});
    ExpectNear(axes(page), 54, 36 + 45 * 7.2);
    EXPECT_NEAR(TextOf(page, "-45").at.x, 54 - 21.6 - 5, 1e-3);
    ExpectNear(axes(Draw({"PopupYAxis=Probability"})), 54, 36);
    ExpectNear(axes(Draw({"PopupXAxis=Linear"})), 306, 36);
}

TEST_F(GraphPage, RhythmOfNumbers)
{
    const auto numbers = [&](const std::string& spacing) {
        const Page page = Draw({"EditXAxisSpacing=" + spacing});
        return Written(page, 0, page.texts.size() - 19 - 3);
    };
    Set({"EditXAxisMinimum=-7"});
    for (const char* const every : {"1", "0", "", "0.5", "1.5"}) {
        EXPECT_EQ(numbers(every).size(), 71U) << every;
    }
    EXPECT_EQ(numbers("30"), (Names{"-7", "23", "53"})) << "counted from the first line, not from zero";
    EXPECT_EQ(numbers("70"), (Names{"-7", "63"}));
    EXPECT_EQ(numbers("71"), Names{"-7"});
    EXPECT_EQ(numbers("27.5"), (Names{"-7", "20", "47"}));
    EXPECT_EQ(numbers("-5"), Names{});
    EXPECT_EQ(numbers("-0.5"), Names{});

    const Page page =
        Draw({"EditXAxisMinimum=-2", "EditXAxisStep=.5", "PopupXAxisType=Trigonometric", "EditXAxisSpacing=1",
              "EditXAxisTextSize=9.9", "EditYAxisMinimum=-2", "EditYAxisStep=.25", "PopupYAxisType=Trigonometric",
              "EditYAxisSpacing=1", "EditYAxisTextSize=11.5"});
    EXPECT_EQ(Written(page, 0, 7), (Names{"-2PI", "-3PI/2", "-PI", "-1PI/2", "0", "1PI/2", "PI"}));
    EXPECT_EQ(Written(page, 71, 3), (Names{"-2", "-1.75", "-1.5"})) << "the Y axis is always numeric";
    ExpectNear(page.texts[0].at, 54 - 4 * 5.4 / 2,
               36 + 8 * 7.2 - 9.9 * 0.63 - 2);  // as wide as at 9, as high as at 9.9
    ExpectNear(page.texts[72].at, 54 + 4 * 7.2 - 5 * 6.6 - 5, 36 + 7.2 - 11.5 * 0.63 / 2);
    EXPECT_TRUE(page.texts[0].size == 9 && page.texts[72].size == 11);
}

TEST_F(GraphPage, LogAxes)
{
    Page page = Draw({"PopupXAxis=Log 2 Decades"});
    const std::vector<Path> up = Up(page);
    ASSERT_EQ(up.size(), 20U + 72U);
    EXPECT_EQ(Wide(up).size(), 20U);
    EXPECT_EQ(Wide(up, 0.1).size(), 72U);
    const auto at = [](double decade, double value) { return 54 + 252 * (decade - 1 + std::log10(value)); };
    const std::vector<std::pair<std::size_t, double>> places = {{0, 54},       {1, at(1, 1.2)},  {4, at(1, 1.8)},
                                                                {5, at(1, 2)}, {44, at(1, 9.8)}, {45, 306},
                                                                {46, 306},     {91, 558}};
    for (const auto& [line, x] : places) {
        ExpectLine(up[line], x, 36, x, 684);
    }
    const Names decade = {"2", "3", "4", "5", "6", "7", "8", "9", "10"};
    EXPECT_EQ(Written(page, 0, 1), Names{"1"});
    EXPECT_EQ(Written(page, 1, 9), decade);
    EXPECT_EQ(Written(page, 10, 9), decade);
    EXPECT_EQ(Written(page, 19, 1), Names{"-45"});
    ExpectNear(page.texts[1].at, at(1, 2) - 3.6, 36 - 7.56 - 2);
    ExpectNear(page.texts[18].at, 558 - 7.2, 36 - 7.56 - 2);
    Set({"EditXMajor=2", "EditXAxisStep=3", "EditXAxisMinimum=4", "EditXAxisMaximum=5", "EditXAxisSpacing=6",
         "PopupXAxisType=Trigonometric", "EditXHydraulicExponent=0"});
    EXPECT_EQ(Generate(), page.operators) << "the range of the form plays no part";

    page = Draw({"PopupYAxis=Log 3 Decades", "EditXLineSpacing=7.3", "LineColorCanvas=#0000FF"});
    EXPECT_NEAR(Up(page).back().points[0].x, 54 + 503, 1e-3) << "51 spacings: the disabled Lines/in give the size";
    const std::vector<Path> across = Across(page);
    ASSERT_EQ(across.size(), 30U + 108U);
    ExpectLine(across[46], 54, 36 + 216, 557, 36 + 216);
    EXPECT_TRUE(across[46].color == black && across[47].color == blue);
    ASSERT_EQ(page.texts.size(), 19U + 28U + 3U);
    ExpectNear(page.texts[20].at, 54 - 7.2 - 5, 36 + 216 * std::log10(2) - 3.78);
    EXPECT_EQ(page.texts[20].color, black);
    page = Draw({"CheckBoxShowAxes=off"});
    EXPECT_TRUE(Up(page).size() == 92 && Across(page).size() == 138);
    EXPECT_EQ(TextsOf(page.texts), Names{"A Sample Graph Paper"});
}

TEST_F(GraphPage, HydraulicAxesReachFromMarginToMargin)
{
    Page page =
        Draw({"CheckBoxShowAxes=off", "PopupXAxis=Hydraulic", "EditXAxisMinimum=0", "EditXAxisMaximum=100",
              "EditXAxisStep=10", "EditXAxisSpacing=1", "PopupXAxisType=Trigonometric", "EditXLineSpacing=7.3"});
    std::vector<Path> up = Up(page);
    ASSERT_EQ(up.size(), 11U);
    for (std::size_t i = 0; i < 11; ++i) {
        const double x = 54 + 504 * std::pow(static_cast<double>(i) / 10, 1.85);
        ExpectLine(up[i], x, 36, x, 684);
    }
    EXPECT_EQ(Wide(up), (std::vector{1, 6, 11}));
    EXPECT_EQ(Across(page).at(0).points[1].x, 557) << "the horizontal lines end with the grid";
    EXPECT_EQ(Written(page, 8, 9), (Names{"80", "90", "100", "A Sample Graph Paper"}));
    ExpectNear(page.texts[10].at, 558 - 10.8, 36 - 1.2 * 7.56 - 2);

    page = Draw({"EditXAxisMinimum=1", "EditXAxisMaximum=10", "EditXAxisStep=2", "EditXAxisSpacing=3",
                 "EditXMajor=0", "EditXHydraulicExponent=2"});
    up = Up(page);
    ASSERT_EQ(up.size(), 5U);
    EXPECT_EQ(up[0].points[0].x, 54);
    EXPECT_NEAR(up[4].points[0].x, 54 + 504 * 80.0 / 99, 1e-3) << "9, the last that is not above the maximum";
    EXPECT_TRUE(Wide(up).empty());
    EXPECT_EQ(TextsOf(page.texts), (Names{"1", "7", "A Sample Graph Paper"}));

    page = Draw({"PopupYAxis=Hydraulic", "EditYAxisMinimum=0", "EditYAxisMaximum=20", "EditYAxisSpacing=10",
                 "EditYLineSpacing=7.3", "EditYMajor=4"});
    const std::vector<Path> across = Across(page);
    ASSERT_EQ(across.size(), 21U);
    EXPECT_EQ(Wide(across), (std::vector{1, 5, 9, 13, 17, 21}));
    ExpectLine(across[0], 54, 36, 558, 36);
    ExpectLine(across[20], 54, 684, 558, 684);
    EXPECT_EQ(Up(page).at(0).points[1].y, 684) << "across an axis that is not linear a line fills the room";
    ExpectNear(TextOf(page, "20").at, 54 - 14.4 - 5, 684 - 2);
    page = Draw({"PopupXAxis=Linear"});
    EXPECT_EQ(Across(page).at(20).points[1].x, 557);
    EXPECT_EQ(Up(page).at(0).points[1].y, 36 + 641) << "65 spacings of 9.863 points, truncated";
}

TEST_F(GraphPage, RefusedHydraulicAxisLeavesTheRestOfThePage)
{
    const std::string exponentOfX = "The Hydraulic Exponent for the X Axis must be larger than 1";
    const std::string exponentOfY = "The Hydraulic Exponent for the Y Axis must be larger than 1";
    const std::string minimumOfX = "The minimum value for the X Axis cannot be negative";
    const std::string minimumOfY = "The minimum value for the Y Axis cannot be negative";
    const auto messages = [&](const Names& assignments) {
        const Page page = Draw(assignments);
        EXPECT_TRUE(Up(page).empty());
        EXPECT_EQ(Across(page).size(), form.ListIndex("PopupYAxis") == 0 ? 91U : 0U);
        EXPECT_EQ(page.texts.back().text, "A Sample Graph Paper");
        return std::exchange(platform.messages, {});
    };
    EXPECT_EQ(messages({"PopupXAxis=Hydraulic"}), Names{minimumOfX});
    EXPECT_EQ(messages({"EditXHydraulicExponent=1"}), Names{exponentOfX}) << "one message an axis";
    EXPECT_EQ(messages({"PopupYAxis=Hydraulic"}), (Names{exponentOfX, minimumOfY}));
    EXPECT_EQ(messages({"EditYHydraulicExponent="}), (Names{exponentOfX, exponentOfY}));

    Set({"PopupYAxis=Linear", "EditXHydraulicExponent=1.85"});
    for (const Names& range :
         {Names{"0", "35", "0"}, {"0", "35", ""}, {"0", "35", "-1"}, {"5", "5", "1"}, {"6", "5", "1"}}) {
        EXPECT_EQ(
            messages({"EditXAxisMinimum=" + range[0], "EditXAxisMaximum=" + range[1], "EditXAxisStep=" + range[2]}),
            Names{});
    }
    Set({"EditXAxisMinimum=1", "EditXAxisMaximum=35", "EditXAxisStep=1e-300"});
    EXPECT_EQ(Up(Draw()).size(), 1U) << "a step too small to leave the minimum";
}

TEST_F(GraphPage, ProbabilityAxis)
{
    Page page =
        Draw({"CheckBoxShowAxes=off", "PopupYAxis=Probability", "EditYAxisTextSize=10", "EditYLineSpacing=7.3",
              "EditXLineSpacing=7.3", "EditYAxisMinimum=3", "EditYMajor=2", "LineColorCanvas=#0000FF"});
    const std::vector<Path> across = Across(page);
    ASSERT_EQ(across.size(), 19U);
    const auto y = [&](std::size_t i) { return across[i].points[0].y; };
    for (std::size_t i = 0; i < 19; ++i) {
        EXPECT_TRUE(across[i].width == 0 && across[i].color == blue) << "no width is set before the first line";
        ExpectNear(page.texts[i].at, 54 - 6.0 * static_cast<double>(page.texts[i].text.size()) - 5, y(i) - 2);
        EXPECT_EQ(page.texts[i].color, blue);
    }
    ExpectLine(across[0], 54, 36, 558, 36);
    ExpectLine(across[18], 54, 684, 558, 684);
    EXPECT_NEAR(y(11), 360, 1e-6) << "50 per cent";
    EXPECT_NEAR(y(15), 360 + 324 * 1.2815516 / 3.0902323, 1e-3) << "90 per cent";
    for (const auto& [low, high] : {std::pair{3U, 17U}, {6, 16}, {7, 15}, {8, 14}, {10, 12}}) {
        EXPECT_NEAR(y(low) - 36, 684 - y(high), 1e-3) << low;
    }
    EXPECT_EQ(TextsOf(page.texts),
              (Names{"0.1", "0.2", "0.5", "1",  "2",  "3",  "5",  "10", "20",   "30",
                     "40",  "50",  "60",  "70", "80", "90", "95", "99", "99.9", "A Sample Graph Paper"}));

    page = Draw({"PopupXAxis=Hydraulic", "EditXAxisMinimum=0", "EditXAxisMaximum=5", "EditXAxisSpacing=2",
                 "EditXMajorWeight=4", "MajorLineColorCanvas=#FF0000"});
    EXPECT_EQ(Up(page).size(), 6U);
    EXPECT_EQ(Up(page)[0].points[1].y, 684);
    EXPECT_TRUE(Across(page).at(9).width == 4 && Across(page)[9].color == red)
        << "what the last hydraulic line left";
}

TEST_F(GraphPage, Titles)
{
    Page page = Draw({"EditTitleX=", "EditXLineSpacing=7.3", "EditYLineSpacing=6.9", "CheckAutoPosXAxisText=on",
                      "CheckAutoPosYAxisText=on", "EditXAxisTitleTextSize=14"});
    // The grid has 503 by 646 points, and zero stands at 345.205 and 469.565.
    ExpectNear(TextOf(page, "A Sample Graph Paper").at, 54 + 251.5 - 120, 718);
    ExpectNear(TextOf(page, "X-Axis Title").at, 255, 480);
    ExpectNear(TextOf(page, "Y-Axis Title").at, 374, 301);

    page = Draw({"EditTitleX=0", "EditTitleY=-1", "EditBottomMargin=.1", "EditLeftMargin=.2", "EditYLineSpacing=1",
                 "PopupXAxis=Log 1 Decade", "PopupYAxis=Log 1 Decade"});
    ExpectNear(TextOf(page, "A Sample Graph Paper").at, 0, 108 + 7.2 + 648 + 72);
    EXPECT_EQ(TextOf(page, "X-Axis Title").at.y, -17) << "truncated towards zero";
    EXPECT_EQ(TextOf(page, "Y-Axis Title").at.x, -10);
    page = Draw({"PopupUnits=cm", "EditYLineSpacing=.4"});
    EXPECT_NEAR(TextOf(page, "A Sample Graph Paper").at.y, 108 + 7.2 + 637 + 28.346457, 1e-3);
}

TEST_F(GraphPage, LinesPerUnit)
{
    for (const std::string one : {"0", "", "abc", "1"}) {
        const Page page = Draw({"EditXLineSpacing=" + one, "EditYLineSpacing=" + one, "EditXAxisStep=" + one});
        EXPECT_TRUE(Up(page).size() == 8 && Across(page).size() == 10) << one;
        EXPECT_EQ(Written(page, 0, 2), (Names{"-35", "-30"})) << one;
    }
    Page page = Draw({"EditXLineSpacing=.1", "CheckBoxShowAxes=off"});
    ASSERT_EQ(page.paths.size(), 1U + 10U) << "wider than the room";
    ExpectLine(page.paths[1], 54, 36, 54, 36);
    EXPECT_EQ(Draw({"EditXLineSpacing=-1"}).paths.size(), 10U);

    page = Draw({"PopupPaperSize=A4", "PopupUnits=cm", "EditXLineSpacing=2", "EditYLineSpacing=1",
                 "EditLeftMargin=2", "EditRightMargin=1", "EditTopMargin=3", "EditBottomMargin=1.5"});
    ASSERT_EQ(Up(page).size(), 36U);  // 17.99 cm
    EXPECT_EQ(Across(page).size(), 26U);
    const double cm = 28.346457;
    ExpectLine(Up(page)[35], 19.5 * cm, 1.5 * cm, 19.5 * cm, 1.5 * cm + std::floor(25 * cm));
}

TEST_F(GraphPage, OrderOfDrawing)
{
    const TemporaryFolder other;
    WriteFile(other / "m", "0 1 marker");
    platform.openAnswer = FolderItem(other / "m");
    // V, H: strokes in that direction; t: texts
    const auto order = [&](const Names& assignments) {
        std::string letters, x;
        for (const std::string& line : Draw(assignments).operators) {
            char letter = 0;
            if (line.ends_with(" m")) {
                x = line.substr(0, line.find(' '));
            } else if (line.ends_with(" l")) {
                letter = line.substr(0, line.find(' ')) == x ? 'V' : 'H';
            } else if (line.ends_with(") Tj")) {
                letter = line == "(marker) Tj" ? 'm' : 't';
            }
            letters += letter == 0 || letters.ends_with(letter) ? "" : std::string(1, letter);
        }
        return letters;
    };
    EXPECT_EQ(order({"CheckBoxMarkers=on"}), "VHmHVt");
    EXPECT_EQ(order({"PopupYAxis=Log 1 Decade"}), "VHtHtHtHtHtHtHtHtHtHtmHVt");
    EXPECT_EQ(order({"PopupYAxis=Hydraulic", "EditYAxisMinimum=44", "EditYAxisSpacing=1"}), "HtHtVmHVt")
        << "what fills the room comes before what fills the grid";
    EXPECT_EQ(order({"PopupXAxis=Hydraulic", "EditXAxisMinimum=34", "EditXAxisSpacing=1"}), "VtVtHtHtmHVt");
    EXPECT_TRUE(order({"PopupYAxis=Probability"}).starts_with("VtVtHtHtHt"));
    EXPECT_EQ(order({"PopupXAxis=Linear", "PopupYAxis=Linear", "CheckBoxShowAxes=off"}), "VHmt");
    EXPECT_EQ(Draw().texts.size(), 2U) << "marker and title";
}

}  // namespace
}  // namespace linealis::test
