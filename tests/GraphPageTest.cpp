#include "PageSupport.h"

// What a graph's page does that the golden pages cannot show.

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

    const std::string longText(65'000, 'x');
    const std::vector<ShownText> texts = Markers("0 0 " + longText + "\n" + longText + "\r\n0 0 b");
    EXPECT_TRUE(TextsOf(texts) == (Names{longText, "", "b"}));
    EXPECT_NEAR(texts.at(0).at.x, 306 - 65e3 * 3, 1);
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
    EXPECT_EQ(Generate(), plain) << "canceled; nothing of the first file is kept";
    platform.openAnswer = FolderItem(folder / "markers");
    EXPECT_NE(Generate(), plain);
    Set({"CheckBoxMarkers=off"});
    EXPECT_EQ(Generate(), plain);
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(GraphMarkers, AChosenFileIsUsedWithoutAQuestion)
{
    const Names plain = Generate();
    WriteFile(folder / "chosen", "1 2 a\n");
    platform.openAnswer = FolderItem(folder / "asked");
    window->ChooseMarkerFile(FolderItem(folder / "chosen"));
    EXPECT_EQ(Draw().texts.size(), 4U);
    WriteFile(folder / "chosen", "1 2 a\n2 3 b\n");
    EXPECT_EQ(Draw().texts.size(), 5U) << "as the file is now";
    fs::remove(folder / "chosen");
    EXPECT_EQ(Generate(), plain);
    EXPECT_NE(platform.notes.back().find("so no markers are drawn"), std::string::npos);
    window->ChooseMarkerFile({});
    EXPECT_EQ(Markers("1 2 a").size(), 1U) << "asked for again";
}

class GraphPage : public testing::Test, protected Paper {
protected:
    GraphPage() : Paper("graph") {}
};

TEST_F(GraphPage, RefusedHydraulicAxisLeavesTheRestOfThePage)
{
    const std::string exponentOfX = "The Hydraulic Exponent for the X Axis must be larger than 1";
    const std::string exponentOfY = "The Hydraulic Exponent for the Y Axis must be larger than 1";
    const std::string minimumOfX = "The minimum value for the X Axis cannot be negative";
    const std::string minimumOfY = "The minimum value for the Y Axis cannot be negative";
    Set({"CheckBoxShowAxes=off"});
    const auto messages = [&](const Names& assignments) {
        const Page page = Draw(assignments);
        EXPECT_EQ(page.verticals, 0U);
        EXPECT_EQ(page.horizontals, form.ListIndex("PopupYAxis") == 0 ? 91U : 0U);
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
}

TEST_F(GraphPage, EndsThoughAStepDoesNotLeaveTheMinimum)
{
    Set({"CheckBoxShowAxes=off"});
    EXPECT_EQ(Draw({"EditXAxisMinimum=-1e300", "EditXMajor=5"}).verticals, 71U);
    Set({"PopupXAxis=Hydraulic", "EditXAxisMinimum=1", "EditXAxisMaximum=35", "EditXAxisStep=1e-300"});
    EXPECT_EQ(Draw().verticals, 1U);
}

}  // namespace
}  // namespace linealis::test
