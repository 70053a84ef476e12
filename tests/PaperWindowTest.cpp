#include "TestSupport.h"
#include "pdf/Numbers.h"
#include "pipeline/PaperForm.h"

namespace linealis::test {
namespace {

TEST(Form, HandlersRunWhenTheControlIsSet)
{
    PaperForm form(
        {{Group::Page,
          {popup("Popup", "", {"a", "b", "c"}), textField("Text", "", "1"), checkBox("Box", "Box", false),
           textField("Labelled", "Caption:", "").LabelledBy("Label").Disabled()}}});
    std::vector<std::string> log;
    form.OnChange("Popup", [&] { log.push_back("popup " + std::to_string(form.ListIndex("Popup"))); });
    form.OnChange("Text", [&] { log.push_back("text " + form.focusedControl); });
    form.OnChange("Box", [&] { log.emplace_back("box"); });
    for (const std::int64_t index : {1, 1, 99, -7}) {
        form.SetListIndex("Popup", index);
    }
    form.SetText("Text", "2");
    form.Type("Text", "3");
    form.SetValue("Box", true);
    form.Click("Box", true);
    EXPECT_EQ(log, (Names{"popup 1", "popup 1", "popup 2", "popup 0", "text ", "text Text", "box"}));
    EXPECT_EQ(form.focusedControl, "");
    EXPECT_EQ(form.SelectedItem("Popup"), "a");
    EXPECT_EQ(form["Label"].caption, "Caption:");
    EXPECT_FALSE(form["Label"].enabled);
    EXPECT_THROW(form.SetText("Unknown", ""), std::out_of_range);
}

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
        EXPECT_EQ(PageSize(), sizes[i]) << form.SelectedItem("PopupPaperSize");
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

TEST_F(Window, AColorIsChosenOrStays)
{
    platform.colorAnswer = Color{255, 0, 51};
    window->ColorCanvas_MouseDown("BackgroundColorCanvas");
    platform.colorAnswer.reset();
    window->ColorCanvas_MouseDown("BackgroundColorCanvas");
    EXPECT_EQ(Generate().at(1), "1.00 0.00 0.20 RG");
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

TEST_F(Window, CancelledDialogMakesNothing)
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
    EXPECT_EQ(ReadFile(page.Path()), old);
}

TEST_F(Window, ViewsThePageOnlyIfWanted)
{
    form.SetValue("CheckBoxViewGraph", false);
    Generate();
    EXPECT_TRUE(platform.launched.empty());
    form.SetValue("CheckBoxViewGraph", true);
    platform.shiftKey = true;
    platform.saveAnswer = FolderItem(folder / "missing/page.pdf");
    window->PushButtonGenerate_Action();
    EXPECT_EQ(platform.fileErrors.size(), 1U);
    EXPECT_EQ(platform.launched, std::vector{platform.saveAnswer}) << "whatever became of the page";
}

TEST_F(Window, APageTooLargeIsGivenUp)
{
    Generate();
    const std::string old = ReadFile(page.Path());
    form.SetText("EditHorzSpacing", "1e-200");
    window->PushButtonGenerate_Action();
    ASSERT_EQ(platform.fileErrors.size(), 1U);
    EXPECT_EQ(platform.fileErrors[0].file, page);
    EXPECT_EQ(ReadFile(page.Path()), old);
    EXPECT_EQ(folder.Names(), Names{"page.pdf"});

    form.SetText("EditHorzSpacing", ".25");
    Generate();
    EXPECT_EQ(ReadFile(page.Path()), old);
}

TEST_F(Window, APageOfNoEndIsGivenUpAndTheNextCountsAnew)
{
    struct Endless : PaperWindow {
        explicit Endless(Platform& its)
            : PaperWindow(its, {{Group::Lines, {swatch("BackgroundColorCanvas", "", white)}}}, {}, {"", ""})
        {}
        void ReadOwnValues() override {}
        void DoGraph() override
        {
            do {
                RuntimeBackgroundTask();
            } while (form.Text("EditXScale") == "100");
        }
    } endless(platform);
    endless.PushButtonGenerate_Action();
    EXPECT_TRUE(platform.fileErrors.size() == 1 && !page.Exists());
    endless.form.SetText("EditXScale", "50");
    endless.PushButtonGenerate_Action();
    EXPECT_TRUE(platform.fileErrors.size() == 1 && page.Exists());
}

TEST_F(Window, FileMenuRemembersTheSettingsFile)
{
    const FolderItem first(folder / "first.setx"), second(folder / "second.setx");
    platform.saveAnswer = FolderItem();
    window->FileSave_Action();
    window->FileSaveAs_Action();
    EXPECT_TRUE(window->OurFolderItem().IsEmpty());
    EXPECT_EQ(folder.Names(), Names{});

    platform.saveAnswer = first;
    window->FileSaveAs_Action();
    EXPECT_EQ(platform.saveQuestions.back().type, (FileType{"Setx", "setx"}));
    EXPECT_EQ(platform.saveQuestions.back().suggestedName, "Untitled");
    form.SetText("EditXScale", "77");
    window->FileSave_Action();
    fs::copy_file(first.Path(), second.Path());
    form.SetText("EditXScale", "66");
    platform.openAnswer = second;
    window->FileOpen_Action();
    EXPECT_EQ(form.Text("EditXScale"), "77");
    EXPECT_EQ(window->OurFolderItem(), second);
    platform.openAnswer = FolderItem();
    window->FileOpen_Action();
    EXPECT_EQ(window->OurFolderItem(), second);
}

}  // namespace
}  // namespace linealis::test
