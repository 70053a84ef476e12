#include "PageSupport.h"

#include <cmath>
#include <map>
#include <numbers>

namespace linealis::test {
namespace {

// The default form has a Letter page with margins of 36 points: what lies inside goes from (36, 36) to (576, 756).

constexpr double tolerance = 1e-3;
constexpr double cm = 28.346457;
const double c30 = std::sqrt(0.75);

using Sides = std::vector<double>;  // left, bottom, right and top; of a line: from x, y to x, y

void ExpectLine(const Path& path, const Sides& line, double dx = 0, double dy = 0)
{
    ASSERT_TRUE(path.IsLine());
    const Sides is = {path.points[0].x - dx, path.points[0].y - dy, path.points[1].x - dx, path.points[1].y - dy};
    const auto near = [](double a, double b) { return std::abs(a - b) < tolerance; };
    EXPECT_TRUE(std::equal(is.begin(), is.end(), line.begin(), near))
        << testing::PrintToString(is) << " is not " << testing::PrintToString(line) << ", both less the steps";
}

/// The lines are `count` copies of the first, each moved by (dx, dy) from the one before.
void ExpectRow(const std::vector<Path>& lines, std::size_t count, const Sides& first, double dx, double dy)
{
    ASSERT_EQ(lines.size(), count);
    for (std::size_t i = 0; i < count; ++i) {
        ExpectLine(lines[i], first, static_cast<double>(i) * dx, static_cast<double>(i) * dy);
    }
}

/// The page begins with the four strokes of a frame.
void ExpectFrame(const Page& page, const Sides& frame)
{
    const double left = frame[0], bottom = frame[1], right = frame[2], top = frame[3];
    ASSERT_GE(page.paths.size(), 4U);
    ExpectLine(page.paths[0], {left, bottom, right, bottom});
    ExpectLine(page.paths[1], {right, bottom, right, top});
    ExpectLine(page.paths[2], {right, top, left, top});
    ExpectLine(page.paths[3], {left, top, left, bottom});
}

/// The numbers, sorted, stand that far apart.
void ExpectSteps(std::vector<double> numbers, std::size_t count, double step)
{
    ASSERT_EQ(numbers.size(), count);
    std::sort(numbers.begin(), numbers.end());
    for (std::size_t i = 1; i < count; ++i) {
        EXPECT_NEAR(numbers[i] - numbers[i - 1], step, tolerance);
    }
}

TEST(LinedPage, Defaults)
{
    Paper paper("lined");
    const Page page = paper.Draw();
    ExpectRow(page.Horizontals(), 48, {36, 36, 576, 36}, 0, 14.4);
    ExpectRow(page.Verticals(), 1, {108, 36, 108, 756}, 0, 0);
    EXPECT_EQ(page.Horizontals()[0].width, .5) << "the weight in the row of the rule";
    EXPECT_EQ(page.Verticals()[0].width, .2);
    const Names withoutRule(page.operators.begin(), page.operators.end() - 4);
    EXPECT_EQ(paper.Draw({"CheckBoxDrawVertical=off"}).operators, withoutRule);
}

TEST(LinedPage, BlankLinesAndOffset)
{
    Paper paper("lined");
    EXPECT_EQ(paper.Draw({"EditBlankTop=2.9"}).Horizontals().size(), 49U);
    ExpectLine(paper.Draw({"EditBlankTop=-2"}).Horizontals().back(), {36, 784.8, 576, 784.8});
    ExpectRow(paper.Draw({"EditBlankTop=51"}).paths, 1, {108, 36, 108, 756}, 0, 0);
    const auto rule = [&](const std::string& offset) {
        return paper.Draw({"EditBlankLeft=" + offset}).Verticals().at(0).points[0].x;
    };
    EXPECT_EQ((std::vector{rule(".9"), rule("-1"), rule("10")}), (std::vector{36.0, 36.0, 756.0}));
    paper.Set({"PopupUnits=cm", "EditLeftMargin=0"});
    EXPECT_EQ((std::vector{rule("1"), rule("3.5")}), (std::vector{28.0, 85.0})) << "whole units, whole points";
    const Page narrow = Paper("lined", {"EditTopMargin=11", "EditBottomMargin=1"}).Draw();
    ExpectRow(narrow.paths, 1, {108, 72, 108, 72 - 4 * 14.4}, 0, 0);
}

TEST(LinedPage, HeightsOfWholeSpacesKeepTheirLastLine)
{
    Paper paper("lined", {"EditBlankTop=0"});
    for (const std::size_t perInch : {3U, 6U, 7U, 9U, 11U, 13U, 23U}) {
        const Page page = paper.Draw({"EditHorzSpacing=" + std::to_string(perInch)});
        EXPECT_EQ(page.Horizontals().size(), perInch * 10 + 1);
    }
    // 792 points less this margin are 20 cm.
    paper.Set({"PopupUnits=cm", "EditTopMargin=7.939999697316671", "EditBottomMargin=0", "EditLeftMargin=1"});
    for (const std::size_t perCm : {1U, 3U, 5U, 7U}) {
        const Page page = paper.Draw({"EditHorzSpacing=" + std::to_string(perCm)});
        ASSERT_EQ(page.Horizontals().size(), perCm * 20 + 1);
        ExpectLine(page.Horizontals().back(), {cm, 20 * cm, 576, 20 * cm});
    }
}

TEST(RuledPages, CountsPerUnitAreCorrectedInTheFormAndNotConverted)
{
    const std::map<std::string, Names> fields = {{"lined", {"EditHorzSpacing"}},
                                                 {"engineering", {"EditHorzSpacing", "EditVertiSpacing"}},
                                                 {"cornell", {"EditHorzSpacing"}}};
    for (const auto& [kind, names] : fields) {
        Paper paper(kind);
        const Names usual = paper.Generate();
        for (const std::string& name : names) {
            for (const char* const nothing : {"0", "-3", "", "five"}) {
                EXPECT_EQ(paper.Draw({name + "=" + nothing}).operators, usual) << kind;
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

TEST(EngineeringPage, BandsAreFreeOfLines)
{
    Paper paper("engineering");
    const Page page = paper.Draw();
    ExpectRow(page.OfWidth(.15), 33, {108, 36, 108, 756}, 14.4, 0);
    ExpectRow(page.OfWidth(.3), 48, {36, 36, 568.8, 36}, 0, 14.4);
    paper.Set({"EditHorzSpacing=1", "EditVertiSpacing=2", "EditBlankLeft=-1.9", "EditBlankTop=2.9"});
    ExpectRow(paper.Draw().Verticals(), 9, {-36, 36, -36, 756}, 72, 0);
    ExpectRow(paper.Draw().Horizontals(), 19, {36, 36, 540, 36}, 0, 36);
    EXPECT_EQ(paper.Draw({"EditBlankLeft=8", "EditBlankTop=21"}).paths.size(), 0U);
    EXPECT_EQ(paper.Draw({"EditBlankLeft=7"}).paths.size(), 1U);
}

TEST(BrickPage, CoursesStandHalfABrickAside)
{
    const Page page = Paper("brick").Draw();
    ExpectRow(page.Horizontals(), 41, {36, 36, 576, 36}, 0, 18);
    const std::vector<Path> joints = page.Verticals();
    ASSERT_EQ(joints.size(), 20U * 10 + 20 * 11);
    auto next = joints.begin();
    for (int course = 0; course < 40; ++course) {
        const int count = course % 2 == 0 ? 10 : 11;
        const double x = course % 2 == 0 ? 63 : 36, y = 36 + 18.0 * course;
        ExpectRow({next, next + count}, static_cast<std::size_t>(count), {x, y, x, y + 18}, 54, 0);
        next += count;
    }
    Paper paper("brick", {"EditVertSpacing=11"});
    ExpectRow(paper.Draw().paths, 1, {36, 396, 576, 396}, 0, 0);
    const Page narrow = paper.Draw({"EditVertSpacing=1", "EditHorzSpacing=8"});
    ExpectRow({narrow.paths.begin() + 11, narrow.paths.end()}, 5, {306, 108, 306, 180}, 0, 144);
    EXPECT_EQ(paper.Draw({"EditHorzSpacing=0"}).paths.size(), 11U) << "no joints";
    EXPECT_EQ(paper.Draw({"EditVertSpacing="}).paths.size(), 0U);
}

TEST(DotsPage, ADotOnEveryCrossing)
{
    Paper paper("dots");
    const Page page = paper.Draw();
    ASSERT_EQ(page.paths.size(), 21U * 16);
    for (int row = 0; row < 21; ++row) {
        const auto first = page.paths.begin() + 16 * row;
        ExpectRow({first, first + 16}, 16, {36, 36 + 36.0 * row, 36, 36 + 36.0 * row}, 36, 0);
    }
    EXPECT_EQ(page.paths[0].width, 1);
    EXPECT_EQ(std::count(page.operators.begin(), page.operators.end(), "1 J"), 1);
    ExpectRow(paper.Draw({"EditDotWeight=0", "EditVertSpacing=11"}).OfWidth(0), 16, {36, 396, 36, 396}, 36, 0);
}

TEST(CrossesPage, CrossesStayInsideTheMargins)
{
    Paper paper("crosses");
    const Page page = paper.Draw();
    ASSERT_EQ(page.paths.size(), 2U * 20 * 15);
    ExpectLine(page.paths[0], {48.6, 54, 59.4, 54});
    ExpectLine(page.paths[1], {54, 48.6, 54, 59.4});
    ExpectLine(page.paths[2 * 15], {48.6, 90, 59.4, 90});
    ExpectLine(page.paths.back(), {558, 732.6, 558, 743.4});
    paper.Set({"PopupUnits=cm"});
    EXPECT_EQ(paper.form.Text("EditHorzSpacing") + paper.form.Text("EditCrossWidth"), "1.27.15") << "as typed";
    const Path bar = paper.Draw().paths[0];
    EXPECT_NEAR(bar.points[1].x - bar.points[0].x, .15 * cm, tolerance);
}

TEST(MarkedPages, LinesLieBelowTheMarksInTheWeightOfTheOtherRow)
{
    for (const char* const kind : {"dots", "crosses"}) {
        SCOPED_TRACE(kind);
        Paper paper(kind, {"EditHorzWeight=2", "EditVertWeight=3", "LinesColorCanvas=#FF0000"});
        const auto enabled = [&](const char* field, const char* caption) {
            EXPECT_EQ(paper.form[field].enabled, paper.form[caption].enabled);
            return paper.form[field].enabled;
        };
        EXPECT_FALSE(enabled("EditHorzWeight", "StaticTextVLines") ||
                     enabled("EditVertWeight", "StaticTextHLines"));
        const std::size_t marks = paper.Draw({"CheckHorzLines=off"}).paths.size();
        paper.Set({"CheckHorzLines=on"});
        EXPECT_FALSE(enabled("EditHorzWeight", "StaticTextVLines"));
        EXPECT_TRUE(enabled("EditVertWeight", "StaticTextHLines"));
        const Page page = paper.Draw({"CheckVertLines=on"});
        EXPECT_TRUE(enabled("EditHorzWeight", "StaticTextVLines"));
        const std::size_t rows = page.OfWidth(2).size(), columns = page.OfWidth(3).size();
        ASSERT_EQ(page.paths.size(), rows + columns + marks);
        const Path& lastColumn = page.paths[rows + columns - 1];
        EXPECT_TRUE(page.paths[rows - 1].IsHorizontal() && page.paths[rows - 1].width == 2);
        EXPECT_TRUE(lastColumn.IsVertical() && lastColumn.width == 3);
        EXPECT_EQ(lastColumn.color + page.paths.back().color, "1.00 0.00 0.000.00 0.00 0.00");
        paper.Set({"CheckHorzLines=off", "CheckVertLines=off"});
        for (const char* const spacing : {"EditHorzSpacing=0", "EditHorzSpacing=-1", "EditVertSpacing="}) {
            EXPECT_TRUE(paper.Draw({spacing}).paths.empty()) << "no cells, no marks: " << spacing;
        }
    }
}

TEST(IsometricPage, ThreeFamiliesOfLines)
{
    const Page page = Paper("isometric").Draw();
    ExpectFrame(page, {36, 36, 576, 756});
    std::vector<Path> verticals;
    std::vector<double> rising, falling;  // where the lines, made longer, meet the left edge
    for (const Path& line : std::vector<Path>(page.paths.begin() + 4, page.paths.end())) {
        const Point& from = line.points[0];
        const double dx = line.points[1].x - from.x, dy = line.points[1].y - from.y;
        if (dx == 0 && dy != 0) {
            verticals.push_back(line);
            continue;
        }
        EXPECT_NEAR(std::abs(dy), std::abs(dx) * 0.5 / c30, tolerance) << "30 degrees";
        EXPECT_TRUE(from.x + dx > 35.999 && from.x + dx < 576.001 && from.y + dy < 756.001);
        const bool rises = dx * dy > 0;
        (rises ? rising : falling).push_back(from.y + (rises ? -0.5 : 0.5) * (from.x - 36) / c30);
    }
    ExpectRow(verticals, 18, {36, 36, 36, 756}, 36 * c30, 0);
    ExpectSteps(rising, 9 + 19, 36);
    ExpectSteps(falling, 20 + 9, 36);  // the first of them has length 0
}

TEST(IsometricPage, OnAWidePaperTheFirstRisingLinesOvershoot)
{
    const Page page =
        Paper("isometric", {"PopupPaperSize=Custom", "EditCustomWidth=20", "EditCustomHeight=5"}).Draw();
    ExpectFrame(page, {36, 36, 1404, 324});
    ExpectLine(page.paths[4], {36, 36, 1404, 36 + 1368 * 0.5 / c30});
    for (const Path& path : page.paths) {
        const bool fromBottom = path.points[0].y == 36 && path.points[1].x == 1404;
        EXPECT_TRUE(fromBottom || path.points[1].y < 324.001);
    }
}

TEST(CellSizePages, WithoutASizeOnlyTheFrameIsDrawn)
{
    for (const char* const kind : {"isometric", "axonometric", "trapezoid", "hexagon"}) {
        SCOPED_TRACE(kind);
        Paper paper(kind, {"PopupUnits=cm"});
        EXPECT_EQ(paper.form.Text("EditSize"), "1.27");
        paper.Set({"PopupUnits=inches", "PopupOrientation=Landscape"});
        for (const char* const size : {"EditSize=0", "EditSize=-1", "EditSize=", "EditSize=x"}) {
            const Page page = paper.Draw({size});
            EXPECT_EQ(page.paths.size(), 4U) << size;
            ExpectFrame(page, {36, 36, 756, 576});
        }
    }
}

TEST(DiagonalPages, FamiliesGoOnUnbrokenPastTheCorners)
{
    struct Case {
        const char* kind;
        double slope, xStep, yStep;
        std::size_t verticals, horizontals, diagonals;
    };
    const double s = 36 / std::sqrt(2.0);
    for (const Case& is :
         {Case{"axonometric", 1, s, s, 11, 14, 25}, {"trapezoid", 2 * c30, 18, 36 * c30, 15, 12, 27}}) {
        SCOPED_TRACE(is.kind);
        Paper paper(is.kind);
        const Page page = paper.Draw();
        ExpectFrame(page, {36, 36, 576, 756});
        const std::vector<Path> minor = page.OfWidth(.15);
        const auto verticals = minor.begin() + 4, horizontals = minor.end() - static_cast<int>(is.horizontals);
        const double x = 36 + is.xStep, y = 36 + is.yStep;
        ExpectRow({verticals, horizontals}, is.verticals, {x, 36, x, 756}, 2 * is.xStep, 0);
        ExpectRow({horizontals, minor.end()}, is.horizontals, {36, y, 576, y}, 0, 2 * is.yStep);
        std::map<bool, std::vector<double>> starts;  // where the lines, made longer, meet the bottom edge
        for (const Path& line : page.OfWidth(.3)) {
            const Point &from = line.points[0], &to = line.points[1];
            const bool rises = to.x > from.x;
            const double slope = rises ? is.slope : -is.slope;
            EXPECT_NEAR(to.y - from.y, slope * (to.x - from.x), tolerance);
            EXPECT_TRUE(std::abs(to.y - 756) < tolerance || std::abs(to.x - (rises ? 576 : 36)) < tolerance)
                << "does not end on the frame";
            starts[rises].push_back(from.x - (from.y - 36) / slope);
        }
        for (const bool rises : {true, false}) {
            ExpectSteps(starts[rises], is.diagonals, 2 * is.xStep);
            EXPECT_NEAR(std::remainder(starts[rises].at(0) - x, 2 * is.xStep), 0, tolerance);
        }
        const Page bare = paper.Draw({"CheckBoxVertical=off", "CheckBoxHorizontal=off", "CheckBoxFrame=off"});
        EXPECT_EQ(bare.paths.size(), 2 * is.diagonals);
        EXPECT_EQ(bare.operators.back(), "0.15 w");
    }
}

TEST(DiagonalPages, ALineOnTheEdgeIsStillDrawn)
{
    const std::vector<Path> minor =
        Paper("trapezoid", {"CheckBoxHorizontal=off"}).Draw({"EditSize=1"}).OfWidth(.15);
    ExpectRow({minor.begin() + 4, minor.end()}, 8, {72, 36, 72, 756}, 72, 0);  // the last on the frame
}

TEST(HexagonPage, AFittedHoneycomb)
{
    const double h = 36 * std::sqrt(3.0), bottom = 396 - 5.5 * h;
    Paper paper("hexagon");
    const Page page = paper.Draw();
    EXPECT_EQ(page.OfWidth(.15).size(), 4U);
    ExpectFrame(page, {54, bottom, 558, 792 - bottom});
    const std::vector<Path> sides = page.OfWidth(.3);
    ASSERT_EQ(sides.size(), 11U * 5 * 6 + 11 * 5);
    for (const Path& side : sides) {
        const double dx = side.points[1].x - side.points[0].x, dy = side.points[1].y - side.points[0].y;
        EXPECT_NEAR(std::hypot(dx, dy), &side >= &sides[330] && side.points[0].x > 557 ? 0 : 36, tolerance);
    }
    ExpectRow({sides.begin() + 330, sides.begin() + 334}, 4, {126, bottom + h / 2, 162, bottom + h / 2}, 108, 0);

    paper.Set({"EditSize=1", "PopupPaperSize=Custom", "EditCustomWidth=7.5"});  // 2 + 3 * 1.5 inches remain
    ExpectFrame(paper.Draw(), {36, 396 - 5 * h, 504, 396 + 5 * h});
    paper.Set({"EditSize=.5", "PopupPaperSize=Letter", "PopupOrientation=Landscape"});  // 720 are 72 + 12 * 54
    ExpectFrame(paper.Draw(), {36, 306 - 4 * h, 756, 306 + 4 * h});
    paper.Set({"EditSize=5", "PopupOrientation=Portrait"});
    EXPECT_EQ(paper.Draw().paths.size(), 4U) << "half a side remains across, which holds no cell";
    ExpectFrame(paper.Draw(), {216, 396 - 5 * h, 396, 396 + 5 * h});
    ExpectFrame(paper.Draw({"EditSize=8"}), {162, 396, 450, 396});
}

TEST(PolarPage, CirclesAndSpokes)
{
    const Page page = Paper("polar").Draw();  // 504 by 684 points remain
    const std::vector<Path> circles = page.Paths([](const Path& path) { return !path.IsLine(); });
    ASSERT_EQ(circles.size(), 8U);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_NEAR(circles[i].points[0].y, 378 + 31.5 * static_cast<double>(i + 1), tolerance);
    }
    const std::vector<Path> rays = page.Paths(std::mem_fn(&Path::IsLine));
    ASSERT_EQ(rays.size(), 12U + 48);
    EXPECT_EQ(page.OfWidth(.1).size(), 48U);
    for (std::size_t i = 0; i < rays.size(); ++i) {
        const double a = static_cast<double>(i < 12 ? i * 4 : i - 12) * std::numbers::pi / 24,
                     from = i < 12 ? 0 : 63;
        const double x = std::cos(a), y = std::sin(a);
        ExpectLine(rays[i], {288 + from * x, 378 + from * y, 288 + 252 * x, 378 + 252 * y});
    }
}

TEST(PolarPage, CountsAndStartsOfAnyKind)
{
    Paper paper("polar", {"RadioButton1=None", "EditNumMinorSpokes=4", "EditNumSpokes=0"});
    const auto firstMinor = [&](const char* start) {
        const Path line = paper.Draw({std::string("EditMinorStart=") + start}).OfWidth(.1).at(0);
        EXPECT_EQ(line.points[1].x, 540);
        return line.points[0].x;
    };
    EXPECT_EQ(firstMinor("0"), 288);
    EXPECT_EQ(firstMinor("8"), 540) << "of length 0";
    EXPECT_EQ(firstMinor("9.9"), 571.5) << "from outside";
    EXPECT_EQ(firstMinor("-1"), 256.5) << "from the other side of the centre";
    EXPECT_EQ(paper.Draw().paths.size(), 8U + 4);
    paper.Set({"EditNumCircles=0", "EditNumSpokes=-3", "EditNumMinorSpokes=-1", "PopupOrientation=Landscape"});
    const Page page = paper.Draw();
    ASSERT_EQ(page.paths.size(), 1U);
    EXPECT_NEAR(page.paths[0].points[0].x, 36 + 684 / 2, tolerance);
    EXPECT_NEAR(page.paths[0].points[0].y, 36 + 504, tolerance) << "the smaller side is the diameter";
}

TEST(PolarPage, LabelsOfEveryStyle)
{
    Paper paper("polar", {"EditTitle=."});
    const auto labels = [&](const Names& assignments) {
        std::string all;
        for (const ShownText& text : paper.Draw(assignments).texts) {
            all += text.text;
        }
        return all;
    };
    EXPECT_EQ(labels({}), "0306090120150180210240270300330.");
    EXPECT_EQ(labels({"RadioButton1=Radians"}),
              "0PI/62 PI/63 PI/64 PI/65 PI/66 PI/67 PI/68 PI/69 PI/610 PI/611 PI/6.");
    EXPECT_EQ(labels({"RadioButton1=Start At 0"}), "01234567891011.");
    EXPECT_EQ(labels({"RadioButton1=Start At 1"}), "123456789101112.");
    EXPECT_EQ(labels({"PopupMenuLabelSkip=3"}), "14710.");
    EXPECT_EQ(labels({"EditNumSpokes=7", "PopupMenuLabelSkip=2", "RadioButton1=Radians"}), "04 PI/78 PI/712 PI/7.");
    EXPECT_EQ(labels({"RadioButton1=None"}), ".");
    paper.Set({"RadioButton1=Degrees", "TextColorCanvas=#FF0000", "PopupFont1=Times Bold", "EditFontSize=7.9"});
    const Page page = paper.Draw();
    for (const ShownText& text : page.texts) {
        EXPECT_EQ(text.font + " " + text.color, "/F10 1.00 0.00 0.00");
        EXPECT_EQ(text.size, text.text == "." ? 20 : 7);
    }
    EXPECT_TRUE(page.Paths([](const Path& path) { return path.color != "0.00 0.00 0.00"; }).empty());
}

TEST(PolarPage, TheTitleStandsWhereItsFieldsSayOrInTheMiddle)
{
    const auto title = [](const char* x) {
        return Paper("polar", {std::string("EditTitleX=") + x}).Draw().texts.back();
    };
    EXPECT_EQ(title("2.6").text, "Sample Polar Graph Paper");
    EXPECT_NEAR(title("2.6").at.x, 187.2, tolerance);
    EXPECT_NEAR(title("2.6").at.y, 36 + 36 + 684 - 72, tolerance);
    EXPECT_EQ(title("0").at.x, 0);
    EXPECT_EQ(title("").at.x, 288 - 24 * 12 / 2);
}

Names TextsOf(const Page& page)
{
    Names names;
    for (const ShownText& text : page.texts) {
        names.push_back(text.text);
    }
    return names;
}

TEST(TernaryPage, TheTriangleFillsTheNarrowerSide)
{
    Paper paper("ternary", {"CheckBoxFrame=off"});  // which changes nothing
    const Page page = paper.Draw();
    const double top = 396 + 270 * c30, bottom = 792 - top;
    const std::vector<Point>& corners = page.paths.at(0).points;
    ASSERT_EQ(corners.size(), 5U);
    ExpectLine({{corners[0], corners[1]}, "", "", 0}, {36, bottom, 306, top});
    ExpectLine({{corners[2], corners[3]}, "", "", 0}, {576, bottom, 36, bottom});
    EXPECT_EQ(corners[4].y, corners[1].y) << "once more over the first side";
    EXPECT_EQ(page.OfWidth(1).size(), 1U + 9 * 3);
    EXPECT_EQ(page.OfWidth(.05).size(), 10U * 4 * 3);
    EXPECT_EQ(paper.Draw({"EditMajorDivisions=1"}).paths.size(), 1U + 4 * 3);
    EXPECT_EQ(paper.Draw({"EditMajorDivisions=0"}).paths.size(), 1U);
    EXPECT_EQ(paper.Draw({"EditMajorDivisions=3", "EditMinorDivisions=1"}).paths.size(), 1U + 2 * 3);
    const Path wide = paper.Draw({"PopupOrientation=Landscape"}).paths.at(0);
    ExpectLine({{wide.points[0], wide.points[1]}, "", "", 0}, {396 - 540 / std::sqrt(3.0), 36, 396, 576});
}

TEST(TernaryPage, NumbersOnTheSidesRunRoundAndFlipReversesThem)
{
    Paper paper("ternary", {"PopupScaling=Axis", "EditMajorDivisions=3", "EditAxisMaximum=10"});
    const Page page = paper.Draw();  // a division at a time: of the bottom, the left and the right side
    EXPECT_EQ(TextsOf(page), (Names{"0", "10", "0", "3.333333", "6.666667", "3.333333", "6.666667", "3.333333",
                                    "6.666667", "10", "0", "10"}));
    EXPECT_EQ(TextsOf(paper.Draw({"CheckBoxFlip=on"})),
              (Names{"10", "0", "10", "6.666667", "3.333333", "6.666667", "3.333333", "6.666667", "3.333333", "0",
                     "10", "0"}));
    const double bottom = page.paths[0].points[0].y;
    const std::vector<Point> places = {{33, bottom - 12}, {26, bottom - 4}, {586, bottom + 8}};
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_NEAR(page.texts[i].at.x, places[i].x, tolerance);
        EXPECT_NEAR(page.texts[i].at.y, places[i].y, tolerance);
    }
}

TEST(TernaryPage, NumbersInsideStandInWhiteBoxes)
{
    Paper paper("ternary", {"PopupScaling=Center", "LineColorCanvas=#0000FF"});
    const Page page = paper.Draw();
    const std::vector<Path> boxes =
        page.Paths([](const Path& path) { return path.color == "255.00 255.00 255.00"; });
    ASSERT_EQ(boxes.size(), 27U);
    EXPECT_TRUE(std::all_of(boxes.begin(), boxes.end(), [](const Path& box) { return box.paint == "f"; }));
    ASSERT_EQ(page.texts.size(), 27U);
    EXPECT_EQ(page.texts[0].text + " " + page.texts[1].text + " " + page.texts[2].text, "10 90 10");
    EXPECT_EQ(page.texts[0].color, "0.00 0.00 1.00");
    EXPECT_EQ(page.texts[0].at.x, 300);
    EXPECT_EQ(boxes[0].points[0].x, 300);
    EXPECT_EQ(boxes[0].points[2].y, std::trunc(396 - 270 * c30 + 54 * c30 + 7 - 3));
    std::string enabled;
    for (const char* const scaling : {"PopupScaling=None", "PopupScaling=Axis", "PopupScaling=Center"}) {
        paper.Set({scaling});
        enabled += paper.form["EditAxisMaximum"].enabled ? "maximum " : "";
        enabled += paper.form["CheckBoxFlip"].enabled ? "flip " : "";
    }
    EXPECT_EQ(enabled, "maximum flip maximum ");
    EXPECT_FALSE(Paper("ternary").form["EditAxisMaximum"].enabled || Paper("ternary").form["CheckBoxFlip"].enabled);
}

class CornellPage : public testing::Test {
protected:
    /// The boxes, each of which ends half a line above its upper left corner.
    Names BoxesWith(const Names& assignments)
    {
        Names boxes;
        for (const Path& path : paper.Draw(assignments).OfWidth(.5)) {
            EXPECT_EQ(path.points.size(), 5U);
            EXPECT_NEAR(path.points.back().y, path.points[0].y + .25, tolerance);
            std::ostringstream box;
            box << path.points[0].x << ' ' << path.points[2].y << ' ' << path.points[2].x << ' '
                << path.points[0].y;
            boxes.push_back(box.str());
        }
        return boxes;
    }

    Paper paper{"cornell"};
};

TEST_F(CornellPage, DefaultsWithTheirHeader)
{
    EXPECT_EQ(BoxesWith({}), (Names{"36 736 403.2 756", "414 736 576 756", "36 711 403.2 731", "414 711 576 731",
                                    "36 149.05 198 701", "198 149.05 576 701", "36 36 576 149.05"}));
    const Page page = paper.Draw({"CheckGrid=on", "EditTextSize=12.9"});
    ExpectRow(page.Horizontals(), 39, {198, 149.05, 576, 149.05}, 0, 14.4);
    ExpectRow(page.Verticals(), 27, {198, 149.05, 198, 701}, 14.4, 0);
    Names texts;
    for (const ShownText& text : page.texts) {
        std::ostringstream shown;
        shown << text.text << ' ' << text.at.x << ' ' << text.at.y << ' ' << text.font << ' ' << text.size;
        texts.push_back(shown.str());
    }
    EXPECT_EQ(texts, (Names{"Name 39 749 /F1 8", "Ned Fallow 64 741 /F1 12", "Date 417 749 /F1 8",
                            "2024-01-31 452 741 /F1 12", "Topic 39 724 /F1 8", "English Term paper 68 716 /F1 12",
                            "Subject 417 724 /F1 8", "Writing 452 716 /F1 12"}));
}

TEST_F(CornellPage, AreasChangeSidesAndTheHeaderMayGo)
{
    EXPECT_EQ(BoxesWith({"CheckBoxTopicArea=off"}),
              (Names{"36 158.4 198 756", "198 158.4 576 756", "36 36 576 158.4"}));
    for (const char* const name :
         {"StaticName", "EditName", "EditDate", "EditTopic", "EditSubject", "EditTextSize"}) {
        EXPECT_FALSE(paper.form[name].enabled) << name;
    }
    EXPECT_TRUE(paper.Draw().texts.empty());
    EXPECT_EQ(BoxesWith({"CheckCueLeft=off", "CheckSummaryBottom=off"}),
              (Names{"414 36 576 633.6", "36 36 414 633.6", "36 633.6 576 756"}));
    ExpectRow(paper.Draw().Horizontals(), 42, {36, 36, 414, 36}, 0, 14.4);
}

TEST_F(CornellPage, SharesAreCorrectedInTheForm)
{
    const auto shares = [&] { return paper.form.Text("EditNoteWidth") + " " + paper.form.Text("EditNoteHeight"); };
    EXPECT_EQ(BoxesWith({"CheckBoxTopicArea=off", "EditNoteWidth=101", "EditNoteHeight=-.5"}),
              (Names{"36 756 36 756", "36 756 576 756", "36 36 576 756"}));
    EXPECT_EQ(shares(), "100 0");
    EXPECT_EQ(paper.Draw().OfWidth(.2).size(), 1U) << "on a note box of no height";
    EXPECT_EQ(BoxesWith({"EditNoteWidth=-5", "EditNoteHeight=1e9"}),
              (Names{"36 36 576 756", "576 36 576 756", "36 36 576 36"}));
    EXPECT_EQ(shares(), "0 100");
    paper.Draw({"EditNoteWidth=100.0", "EditNoteHeight=-0"});
    EXPECT_EQ(shares(), "100.0 -0") << "as typed";
}

}  // namespace
}  // namespace linealis::test
