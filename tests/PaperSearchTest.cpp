#include "desktop/window/PaperSearch.h"

#include "PageSupport.h"
#include "app/OwnPresets.h"
#include "desktop/system/RecentFiles.h"

namespace linealis::test {
namespace {

class PaperSearchTest : public testing::Test {
protected:
    Names Found(std::string_view words, bool isMetric = true) const
    {
        Names titles;
        for (const PaperHit& hit : FindPapers(words, preferences, isMetric)) {
            titles.push_back(std::string("KPOR").substr(static_cast<std::size_t>(hit.sort), 1) + " " + hit.title);
        }
        return titles;
    }

    TemporaryFolder folder;
    FolderItem preferences{folder / "preferences"};
};

TEST_F(PaperSearchTest, FindsAllWordsInKindsPresetsOwnOnesAndFiles)
{
    const Paper paper("cornell");
    const FolderItem file(folder / "Lecture Zoo Ärger Þ.setc");
    EXPECT_FALSE(OwnPresets(preferences).Save("My cornell", *FindPaperKind("cornell"), *paper.window));
    EXPECT_FALSE(paper.window->SaveSettings(file));
    const Names suggested = Found(" ");
    ASSERT_GT(suggested.size(), 3U) << "presets";
    EXPECT_EQ(suggested[0], "P Squares 5 mm");
    EXPECT_FALSE(RecentFiles(preferences).Add(file));
    const Names after = Found("");
    EXPECT_EQ(after[0], "R Lecture Zoo Ärger Þ.setc");
    EXPECT_EQ(Names(after.begin() + 1, after.end()), suggested);
    EXPECT_EQ(Found("CORNELL"),
              (Names{"K Note Paper", "P Cornell Notes A4, 8 mm lines", "P Cornell Notes A4, left-handed",
                     "P Cornell Notes Letter, 8 mm lines", "O My cornell"}));
    EXPECT_EQ(Found("note")[1], "R Lecture Zoo Ärger Þ.setc") << "before presets, as in the suggestions";
    const auto presets = FindPresets("", preferences, true);
    EXPECT_EQ(presets.size(), Presets().size() + 1);
    EXPECT_EQ(presets.back().title, "My cornell");
    EXPECT_EQ(FindPresets("CORNELL my", preferences, true).size(), 1U);
    EXPECT_EQ(Found("cornell 8", false)[0], "P Cornell Notes Letter, 8 mm lines");
    EXPECT_EQ(Found("note my"), Names{"O My cornell"});
    EXPECT_EQ(Found("ärger  LECT zoo þ"), Names{"R Lecture Zoo Ärger Þ.setc"});
    EXPECT_EQ(Found("5 mm")[0], "P Squares 5 mm");
    EXPECT_EQ(Found("semi-log 3"), (Names{"P Semi-log, 3 decades", "P Semi-log across, 3 decades"}));
    EXPECT_EQ(Found("cornell rainbow"), Names{});
    for (const PaperKind& kind : PaperKinds()) {
        EXPECT_EQ(Found(kind.galleryTitle)[0], "K " + std::string(kind.galleryTitle));
    }
}

}  // namespace
}  // namespace linealis::test
