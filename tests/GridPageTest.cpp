#include "TestSupport.h"

#include <cmath>
#include <map>
#include <sstream>

namespace linealis::test {
namespace {

struct Line {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0, width = 0;
};

/// The strokes of a page. The grid draws all horizontal lines first, with a width set once, then the vertical ones.
struct Strokes {
    std::vector<Line> horizontal, vertical;
};

class GridPage : public GridTest {
protected:
    Strokes Draw()
    {
        Strokes strokes;
        Line line;
        std::vector<Line>* pass = nullptr;
        bool horizontal = form.Value("CheckHorzLines");
        for (const std::string& text : Generate()) {
            std::istringstream words(text);
            if (text == "S") {
                pass->push_back(line);
            } else if (text.ends_with(" w")) {
                words >> line.width;
                pass = horizontal ? &strokes.horizontal : &strokes.vertical;
                horizontal = false;
            } else if (text.ends_with(" m")) {
                words >> line.x1 >> line.y1;
            } else if (text.ends_with(" l")) {
                words >> line.x2 >> line.y2;
            }
            EXPECT_EQ(text.find("nan"), std::string::npos);
            EXPECT_EQ(text.find("inf"), std::string::npos);
        }
        return strokes;
    }

    void Set(const std::map<std::string, std::string>& texts)
    {
        for (const auto& [name, text] : texts) {
            form.SetText(name, text);
        }
    }
};

TEST_F(GridPage, DefaultsOnLetter)
{
    const std::vector<std::string> operators = Generate();
    EXPECT_EQ(Names(operators.begin(), operators.begin() + 10),
              (Names{"1.00000 0 0 1.00000  0 0 cm", "0.00 0.00 0.00 RG", "0.00 0.00 0.00 rg", "0.5 w", "36 36 m",
                     "576 36 l", "S", "36 54 m", "576 54 l", "S"}));
    EXPECT_EQ(Names(operators.end() - 3, operators.end()), (Names{"576 36 m", "576 756 l", "S"}));
    const Strokes strokes = Draw();
    ASSERT_EQ(strokes.horizontal.size(), 41U);
    ASSERT_EQ(strokes.vertical.size(), 31U);
    for (std::size_t i = 0; i < strokes.horizontal.size(); ++i) {
        const Line& line = strokes.horizontal[i];
        EXPECT_TRUE(line.x2 - line.x1 == 540 && line.y1 == 36.0 + 18.0 * static_cast<double>(i) &&
                    line.y2 == line.y1);
    }
    for (std::size_t i = 0; i < strokes.vertical.size(); ++i) {
        const Line& line = strokes.vertical[i];
        EXPECT_TRUE(line.y2 - line.y1 == 720 && line.x1 == 36.0 + 18.0 * static_cast<double>(i) &&
                    line.x2 == line.x1);
    }
    EXPECT_EQ(Generate(), operators) << "the margins that were moved for the page are back";
}

TEST_F(GridPage, TheBoxVerticalLinesGovernsTheWeightOfTheHorizontalLines)
{
    Set({{"EditHorzWeight", "2"}, {"EditVertWeight", "3"}});
    EXPECT_EQ(Draw().horizontal.at(0).width, 2);
    EXPECT_EQ(Draw().vertical.at(0).width, 3);
    form.Click("CheckVertLines", false);
    EXPECT_FALSE(form["EditHorzWeight"].enabled || form["StaticTextVLines"].enabled);
    EXPECT_TRUE(form["EditVertWeight"].enabled && form["StaticTextHLines"].enabled);
    EXPECT_EQ(Draw().horizontal.size(), 41U);
    EXPECT_EQ(Draw().horizontal.at(0).width, 2) << "the disabled field still counts";
    EXPECT_TRUE(Draw().vertical.empty());
    form.Click("CheckVertLines", true);
    form.Click("CheckHorzLines", false);
    EXPECT_TRUE(form["EditHorzWeight"].enabled && form["StaticTextVLines"].enabled);
    EXPECT_FALSE(form["EditVertWeight"].enabled || form["StaticTextHLines"].enabled);
    EXPECT_TRUE(Draw().horizontal.empty());
    EXPECT_EQ(Draw().vertical.size(), 31U);
    form.Click("CheckVertLines", false);
    form.SetColor("LinesColorCanvas", {255, 0, 0});
    EXPECT_EQ(Generate(), (Names{"1.00000 0 0 1.00000  0 0 cm", "1.00 0.00 0.00 RG", "1.00 0.00 0.00 rg"}));
}

TEST_F(GridPage, StandsCentredBetweenTheMargins)
{
    Set({{"EditHorzSpacing", ".35"},
         {"EditVertSpacing", "1.5"},
         {"EditLeftMargin", "1"},
         {"EditBottomMargin", "2"}});
    const Strokes strokes = Draw();  // 504 by 612 points: 20 columns of 25.2, 5 rows of 108 and 72 to spare
    ASSERT_EQ(strokes.vertical.size(), 21U);
    ASSERT_EQ(strokes.horizontal.size(), 6U);
    EXPECT_NEAR(strokes.vertical.front().x1, 72, 1e-4);
    EXPECT_NEAR(strokes.vertical.back().x1, 576, 1e-4);
    EXPECT_EQ(strokes.horizontal.front().y1, 144 + 36);
    EXPECT_EQ(strokes.horizontal.back().y1, 756 - 36);
    EXPECT_EQ(strokes.vertical.front().y1, 180);
    EXPECT_EQ(strokes.vertical.front().y2, 720);
}

TEST_F(GridPage, LengthsInCentimetres)
{
    form.SetListIndex("PopupUnits", 1);
    form.SetListIndex("PopupPaperSize", 7);
    Set({{"EditHorzSpacing", "1"},
         {"EditVertSpacing", "0,5"},
         {"EditTopMargin", "1"},
         {"EditBottomMargin", "1"},
         {"EditLeftMargin", "2"},
         {"EditRightMargin", "1"}});
    const double cm = 28.346457;
    const Strokes strokes = Draw();  // 595 by 842 points: 17.99 columns, 55.4 rows
    ASSERT_EQ(strokes.vertical.size(), 18U);
    ASSERT_EQ(strokes.horizontal.size(), 56U);
    const double left = 2 * cm + (595 - 3 * cm - 17 * cm) / 2, bottom = cm + (842 - 2 * cm - 27.5 * cm) / 2;
    for (std::size_t i = 0; i < strokes.vertical.size(); ++i) {
        EXPECT_NEAR(strokes.vertical[i].x1, left + static_cast<double>(i) * cm, 1e-4);
    }
    EXPECT_NEAR(strokes.horizontal.front().y1, bottom, 1e-4);
    EXPECT_NEAR(strokes.horizontal.back().y1, bottom + 27.5 * cm, 1e-4);
}

TEST_F(GridPage, ASpacingLargerThanThePageGivesOneLineInTheMiddle)
{
    for (const char* const spacing : {"11", "1e300", "-20"}) {
        Set({{"EditVertSpacing", spacing}});
        const Strokes strokes = Draw();
        ASSERT_EQ(strokes.horizontal.size(), 1U) << spacing;
        EXPECT_EQ(strokes.horizontal[0].y1, 396);
        ASSERT_EQ(strokes.vertical.size(), 31U);
        EXPECT_TRUE(strokes.vertical[0].y1 == 396 && strokes.vertical[0].y2 == 396) << "lines of length 0";
    }
}

TEST_F(GridPage, ASpacingOfNothingDrawsNoLineOfItsDirection)
{
    for (const char* const spacing : {"0", "", "abc", "-0", "1e-400"}) {
        Set({{"EditVertSpacing", ".25"}, {"EditHorzSpacing", spacing}});
        Strokes strokes = Draw();
        EXPECT_TRUE(strokes.vertical.empty()) << spacing;
        ASSERT_EQ(strokes.horizontal.size(), 41U);
        EXPECT_TRUE(strokes.horizontal[40].x1 == 306 && strokes.horizontal[40].x2 == 306 &&
                    strokes.horizontal[40].y1 == 756);
        Set({{"EditVertSpacing", spacing}});
        strokes = Draw();
        EXPECT_TRUE(strokes.vertical.empty() && strokes.horizontal.empty());
    }
}

TEST_F(GridPage, ANegativeSpacingDrawsNoLineOfItsDirection)
{
    Set({{"EditHorzSpacing", "-0.25"}});
    const Strokes strokes = Draw();
    EXPECT_TRUE(strokes.vertical.empty());
    ASSERT_EQ(strokes.horizontal.size(), 41U);
    EXPECT_TRUE(strokes.horizontal[0].x1 == 36 && strokes.horizontal[0].x2 == 576) << "-30 columns of -18 points";
}

TEST_F(GridPage, MarginsThatMeetLeaveNoLines)
{
    Set({{"EditLeftMargin", "10"}, {"EditRightMargin", "10"}});
    EXPECT_TRUE(Draw().vertical.empty());
    EXPECT_EQ(Draw().horizontal.size(), 41U);
    Set({{"EditLeftMargin", "4.3"}, {"EditRightMargin", "4.3"}});
    const Strokes strokes = Draw();
    ASSERT_EQ(strokes.vertical.size(), 1U) << "-0.4 columns are none, which has one line";
    EXPECT_NEAR(strokes.vertical[0].x1, 306, 1e-4);
}

}  // namespace
}  // namespace linealis::test
