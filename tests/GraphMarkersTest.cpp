#include "PageSupport.h"

#include <cmath>

namespace linealis::test {
namespace {

class GraphMarkers : public testing::Test, protected Paper {
protected:
    GraphMarkers() : Paper("graph", {"CheckBoxMarkers=on", "EditXAxisSpacing=-1", "EditYAxisSpacing=-1"}) {}

    /// The texts of the page but for its titles: with linear axes, which have no numbers here, its markers.
    std::vector<ShownText> Markers(std::string_view text)
    {
        WriteFile(folder / "markers", text);
        platform.openAnswer = FolderItem(folder / "markers");
        std::vector<ShownText> texts = Draw().texts;
        texts.resize(texts.size() - 3);
        return texts;
    }

    void ExpectPlace(std::string_view text, double x, double y)
    {
        const std::vector<ShownText> texts = Markers(text);
        ASSERT_FALSE(texts.empty());
        const double halfWidth = 3 * static_cast<double>(texts.back().text.size());
        EXPECT_NEAR(texts.back().at.x, x - halfWidth, 1e-3) << text;
        EXPECT_NEAR(texts.back().at.y, y - 4, 1e-3) << text;
    }

    TemporaryFolder folder;
};

TEST_F(GraphMarkers, OnEachKindOfAxis)
{
    ExpectPlace("0 0 word", 306, 360);
    ExpectPlace("10 -5 a", 306 + 72, 360 - 36);
    Set({"EditXAxisStep=2", "EditXLineSpacing=7.3", "EditXAxisMinimum=10"});
    ExpectPlace("10 0 a", 54 + 5 * 72 / 7.3, 360);  // the edge is where the scale starts, whatever its value

    Set({"PopupXAxis=Log 2 Decades", "PopupYAxis=Log 3 Decades"});  // the grid is 503 points wide
    ExpectPlace("100 1000 a", 54 + 503, 684);
    ExpectPlace("1 1 a", 54, 36);
    ExpectPlace("20 .1 a", 54 + 251.5 * std::log10(20), 36 - 216);
    const std::size_t numbers = 19 + 28;
    ASSERT_EQ(Markers("").size(), numbers);
    const Names texts = TextsOf(Markers("0 5 a\n5 0 b\n-5 5 c\n5 -5 d\n1e308 1e-308 e\nword word f\n5 5 g"));
    EXPECT_EQ(Names(texts.begin() + numbers, texts.end()), (Names{"e", "g"})) << "no logarithm, no place";

    Set({"PopupXAxis=Hydraulic", "PopupYAxis=Probability", "EditXAxisMinimum=1", "EditXAxisMaximum=100"});
    ExpectPlace("1 50 a", 54, 360);
    ExpectPlace("100 99.9 a", 54 + 503, 684);  // the edge of the grid, not of the room
    ExpectPlace("10 10 a", 54 + 503 * (std::pow(10, 1.85) - 1) / (std::pow(100, 1.85) - 1),
                360 - 324 * 1.2815516 / 3.0902323);
    EXPECT_EQ(Markers("-1 50 a").size(), Markers("").size()) << "no power, no place";
    EXPECT_LT(Markers("10 100 a").back().at.y, -10000);
    EXPECT_LT(Markers("10 0 a").back().at.y, -10000);
    Set({"PopupYAxis=Hydraulic", "EditYAxisMinimum=0", "EditYAxisMaximum=2", "EditYHydraulicExponent=2"});
    ExpectPlace("100 1 a", 54 + 503, 36 + 648 / 4.0);
    EXPECT_EQ(Complaints(file.Path()), "");
}

TEST_F(GraphMarkers, TakeColourAndFontInForce)
{
    Set({"LineColorCanvas=#0000FF", "MajorLineColorCanvas=#FF0000", "PopupFont1=Courier Bold"});
    ShownText marker = Markers("0 0 abcd").at(0);
    EXPECT_TRUE(marker.font == 2 && marker.size == 10 && marker.color == PageColor{});
    Set({"PopupXAxis=Log 1 Decade", "EditXAxisTextSize=30"});
    marker = Markers("1 0 abcd").back();
    EXPECT_TRUE(marker.font == 2 && marker.size == 30) << "that of the numbers of the axis";
    EXPECT_NEAR(marker.at.x, 54 - 12, 1e-3) << "centred as at size 10 all the same";
}

TEST_F(GraphMarkers, LinesAndFields)
{
    const std::string mark = "\xEF\xBB\xBF";
    for (const std::string& text :
         {std::string("1 2 a\n1 2 b\n"), std::string("1 2 a\r\n1 2 b\r\n"), std::string("1 2 a\r1 2 b\r"),
          std::string("1 2 a\r\n1 2 b"), std::string("1 2 a two\n1 2 b 3 4"), mark + "1 2 a\n1 2 b"}) {
        EXPECT_EQ(TextsOf(Markers(text)), (Names{"a", "b"})) << text;
    }
    EXPECT_EQ(TextsOf(Markers("a\n\nb\r\n\r\n\r\rc")), Names(7)) << "what is missing is 0, or an empty text";
    ExpectPlace("\n", 306, 360);
    ExpectPlace("5\n", 306 + 36, 360);
    ExpectPlace("word 5 a", 306, 360 + 36);
    ExpectPlace("5  a b", 306 + 36, 360);  // two blanks have an empty field between them
    ExpectPlace(mark + "0,5 1e1 b", 306 + 3.6, 360 + 72);
    ExpectPlace("0 0 \xC3\xA9\xE2\x82\xAC", 306, 360);  // two characters of five bytes

    const std::string longText(1'000'000, 'x');
    const std::vector<ShownText> texts = Markers("0 0 " + longText + "\n" + longText + "\r\n0 0 b");
    EXPECT_TRUE(TextsOf(texts) == (Names{longText, "", "b"}));
    EXPECT_NEAR(texts.at(0).at.x, 306 - 3e6, 1);
    EXPECT_EQ(Complaints(file.Path()), "");
}

TEST_F(GraphMarkers, WithoutAFileThereAreNoneAndNoError)
{
    const Names plain = Generate();
    EXPECT_EQ(Markers("1 2 a").size(), 1U);
    std::string binary;
    for (int i = 0; i < 70'000; ++i) {
        binary += static_cast<char>(i * 7);
    }
    WriteFile(folder / "binary", binary);
    WriteFile(folder / "empty", "");
    for (const char* const name : {"binary", "empty", "", "missing"}) {
        platform.openAnswer = FolderItem(folder / name);
        EXPECT_EQ(Generate(), plain) << name;
    }
    platform.openAnswer = FolderItem();
    EXPECT_EQ(Generate(), plain) << "cancelled; nothing of the first file is kept";
    platform.openAnswer = FolderItem(folder / "markers");
    EXPECT_NE(Generate(), plain);
    Set({"CheckBoxMarkers=off"});
    EXPECT_EQ(Generate(), plain);
    EXPECT_TRUE(platform.messages.empty());
}

}  // namespace
}  // namespace linealis::test
