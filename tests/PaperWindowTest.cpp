#include "TestSupport.h"
#include "pipeline/page/PageJob.h"
#include "text/Numbers.h"

#include <future>

namespace linealis::test {
namespace {

struct SmallForm final : Form {
    Popup popup{*this, Group::Page, "Popup", "popup", "", {"a", "b", "c"}};
    TextField text{*this, Group::Page, "Text", "text", "", "1"};
    CheckBox box{*this, Group::Page, "Box", "box", "Box", false};
    TextField follower{
        *this, Group::Page, "Follower", "follower", "Caption:", "", {.label = "Label", .enabledBy = &box}};
};

class Window : public GridTest {
protected:
    Names Texts(const Names& names) const
    {
        Names texts;
        for (const std::string& name : names) {
            texts.push_back(form.Text(name));
        }
        return texts;
    }

    /// The page's size as its MediaBox has it, after a Generate.
    std::string PageSize()
    {
        Generate();
        const std::string file = ReadFile(page.Path());
        const std::size_t start = file.find("/MediaBox[0 0 ") + 14;
        return file.substr(start, file.find(']', start) - start);
    }

    const Names customSize = {"EditCustomWidth", "EditCustomHeight"};
    const Names lengths = {"EditTopMargin",   "EditBottomMargin", "EditLeftMargin",
                           "EditRightMargin", "EditVertSpacing",  "EditHorzSpacing"};
};

TEST_F(Window, UnitsConvertTheLengthsThereAndBack)
{
    const Names inInches = {"1", "0.3333333", ".75", "abc", "1,5", "-2"};
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        form.SetText(lengths[i], inInches[i]);
    }
    form.SetText("EditHorzWeight", "0.7");
    form.SetListIndex("PopupUnits", 1);
    EXPECT_EQ(Texts(lengths), (Names{"2.54", "0.8466666", "1.905", "0", "3.81", "-5.08"}));
    EXPECT_EQ(form["StaticText16"].caption, "cm");
    EXPECT_EQ(form.Text("EditHorzWeight"), "0.7");
    EXPECT_EQ(Texts(customSize), (Names{"21.59", "27.94"})) << "Letter";
    form.SetListIndex("PopupUnits", 0);
    EXPECT_EQ(Texts(lengths), (Names{"1", "0.3333333", "0.75", "0", "1.5", "-2"}));
    EXPECT_EQ(form["StaticText16"].caption, "in");
    EXPECT_EQ(Texts(customSize), (Names{"8.5", "11"}));
    form.SetListIndex("PopupUnits", 0);
    EXPECT_EQ(form.Text("EditTopMargin"), Str(1 / 2.54)) << "chosen again, converted again";
}

TEST_F(Window, PaperSizesHaveTheirPoints)
{
    const Names sizes = {"612 792",  "612 1008", "1224 792", "2380 3368", "1684 2380", "1190 1684",
                         "842 1190", "595 842",  "421 595",  "297 421",   "501 709",   "1224 792"};
    form.SetText("EditVertSpacing", "1");
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        form.SetListIndex("PopupPaperSize", static_cast<std::int64_t>(i));
        EXPECT_EQ(PageSize(), sizes[i]) << form.Selected("PopupPaperSize");
    }
    EXPECT_EQ(Texts(customSize), (Names{"17", "11"}));
    form.SetListIndex("PopupOrientation", 1);
    EXPECT_EQ(PageSize(), "792 1224");
    EXPECT_EQ(Texts(customSize), (Names{"17", "11"})) << "the custom fields do not turn with the page";
}

TEST_F(Window, CustomSizes)
{
    const Names parts = {"EditCustomWidth", "EditCustomHeight", "StaticBy"};
    const auto enabled = [&](bool wanted) {
        return std::all_of(parts.begin(), parts.end(),
                           [&](const auto& name) { return form[name].enabled == wanted; });
    };
    EXPECT_TRUE(enabled(false));
    form.SetListIndex("PopupPaperSize", 12);
    EXPECT_TRUE(enabled(true));
    EXPECT_EQ(PageSize(), "612 792");
    form.SetText("EditCustomWidth", "5.999");
    EXPECT_EQ(PageSize(), "431 792") << "truncated";
    form.SetListIndex("PopupOrientation", 1);
    EXPECT_EQ(PageSize(), "792 431");
    form.SetListIndex("PopupOrientation", 0);

    form.SetText("EditCustomWidth", "8.5");
    form.SetListIndex("PopupUnits", 1);
    EXPECT_EQ(Texts(customSize), (Names{"8.466667", mystring(311 * 2.54 / 72)})) << "8.5 and 11, now taken as cm";
    form.SetText("EditCustomWidth", "21");
    form.SetText("EditCustomHeight", "29.7");
    EXPECT_EQ(PageSize(), "595 841");
    form.SetText("EditCustomWidth", "10000000");
    form.SetText("EditHorzSpacing", "0");
    EXPECT_EQ(PageSize(), "283464567 841") << "by 28.3464567, not by the margins' 28.346457";

    for (const char* const nothing : {"0", "", "-3", "letter"}) {
        form.SetText("EditCustomWidth", nothing);
        form.SetText("EditCustomHeight", nothing);
        EXPECT_EQ(PageSize(), "10 10");
    }
    form.SetListIndex("PopupPaperSize", 7);
    EXPECT_TRUE(enabled(false));
    EXPECT_EQ(Texts(customSize), (Names{mystring(595 * 2.54 / 72), mystring(842 * 2.54 / 72)}));
}

TEST_F(Window, RemembersItsFileUntilAShiftClick)
{
    Generate();
    ASSERT_EQ(platform.saveQuestions.size(), 1U);
    EXPECT_EQ(form["StaticFileName"].caption, "page.pdf");

    platform.saveAnswer = FolderItem(folder / "other.pdf");
    form.SetText("EditHorzSpacing", "1");
    const std::string before = ReadFile(page.Path());
    Generate();
    EXPECT_EQ(platform.saveQuestions.size(), 1U) << "not asked again";
    EXPECT_NE(ReadFile(page.Path()), before);
    EXPECT_EQ(folder.Names(), Names{"page.pdf"});

    platform.shiftKey = true;
    window->PushButtonGenerate_Action();
    EXPECT_EQ(platform.saveQuestions.size(), 2U);
    EXPECT_EQ(form["StaticFileName"].caption, "other.pdf");
    EXPECT_EQ(folder.Names(), (Names{"other.pdf", "page.pdf"}));
    EXPECT_EQ(platform.launched, (std::vector{page, page, platform.saveAnswer}));
}

TEST_F(Window, CanceledDialogMakesNothing)
{
    Generate();
    const std::string old = ReadFile(page.Path());
    platform.saveAnswer = FolderItem();
    platform.shiftKey = true;
    platform.launched.clear();
    form.SetText("EditHorzSpacing", "1");
    window->PushButtonGenerate_Action();
    EXPECT_EQ(form["StaticFileName"].caption, "");
    EXPECT_TRUE(window->OutputFile().IsEmpty() && platform.launched.empty() && platform.fileErrors.empty());
    EXPECT_TRUE(window->Pdf().theFile.IsEmpty());
    EXPECT_EQ(ReadFile(page.Path()), old);
    WriteFile(folder / "none.setx", "");
    window->LoadSettings(FolderItem(folder / "none.setx"));  // which forgets the file, without the shift key
    form.SetValue("CheckBoxViewGraph", true);
    platform.shiftKey = false;
    window->PushButtonGenerate_Action();
    EXPECT_TRUE(platform.launched.empty());
}

TEST_F(Window, APageTooLargeIsGivenUp)
{
    Generate();
    const std::string old = ReadFile(page.Path());
    form.SetText("EditHorzSpacing", "1e-200");
    Turns turns([] {});
    MyPDFGenerator pdf(turns, 1'000'000);
    pdf.theFile = page;
    EXPECT_EQ(MakePage(window->ReadPage(), pdf, turns, {}, platform), PageEnd::Failed);
    ASSERT_EQ(platform.fileErrors.size(), 1U);
    EXPECT_EQ(platform.fileErrors[0].file, page);
    EXPECT_NE(platform.fileErrors[0].reason.find("1 GiB"), std::string::npos);
    EXPECT_EQ(ReadFile(page.Path()), old);
    EXPECT_EQ(folder.Names(), Names{"page.pdf"});

    form.SetText("EditHorzSpacing", ".25");
    Generate();
    EXPECT_EQ(ReadFile(page.Path()), old);
}

TEST_F(Window, APageOfNoEndIsGivenUpAndTheNextCountsAnew)
{
    bool ends = false;
    const PaperPage endless{PageFrame(), [&](MyPDFGenerator&, Turns& turns, const PageQuestions&) {
                                do {
                                    turns.RuntimeBackgroundTask();
                                } while (!ends);
                            }};
    Turns turns([] {}, 100);
    MyPDFGenerator pdf(turns);
    pdf.theFile = page;
    EXPECT_EQ(MakePage(endless, pdf, turns, {}, platform), PageEnd::Failed);
    ASSERT_TRUE(platform.fileErrors.size() == 1 && !page.Exists());
    EXPECT_NE(platform.fileErrors[0].reason.find("drawing steps"), std::string::npos);
    ends = true;
    for (int i = 0; i < 200; ++i) {
        MakePage(endless, pdf, turns, {}, platform);
    }
    EXPECT_TRUE(platform.fileErrors.size() == 1 && page.Exists());
}

TEST_F(Window, WhatChangesWhileAPageIsDrawnComesWithTheNext)
{
    form.SetText("EditHorzSpacing", ".01");
    const Names before = Generate();
    platform.onYield = [this] {
        form.SetText("EditLeftMargin", "3");
        form.SetColor("LinesColorCanvas", {255, 0, 0});
        form.SetListIndex("PopupPaperSize", 3);
    };
    EXPECT_TRUE(Generate() == before);
    EXPECT_FALSE(Generate() == before);
}

TEST_F(Window, APageCanBeDrawnOnAThreadOfItsOwn)
{
    const Names made = Generate();
    const PaperPage read = FindPaperKind("grid")->makePaper(platform).readPage();
    auto drawn = std::async(std::launch::async, [&read] {
        Turns turns([] {});
        MyPDFGenerator pdf(turns);
        DrawContent(read, pdf, turns, {});
        return std::string(pdf.Stream());
    });
    EXPECT_EQ(made, Lines(drawn.get()));
}

}  // namespace
}  // namespace linealis::test
