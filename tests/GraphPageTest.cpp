#include "PageSupport.h"

// What a graph's page does that the golden pages cannot show.

namespace linealis::test {
namespace {

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

TEST_F(GraphPage, OrderOfDrawing)
{
    const TemporaryFolder other;
    WriteFile(other / "m", "0 1 marker");
    platform.openAnswer = FolderItem(other / "m");
    // V, H: strokes in that direction; t: texts
    const auto order = [&](const Names& assignments) {
        std::string letters, x;
        for (const std::string& line : Lines(Draw(assignments).content)) {
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
