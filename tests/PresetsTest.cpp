#include "kinds/Presets.h"

#include "PageSupport.h"
#include "app/OwnPresets.h"
#include "pdf/StreamCompression.h"

#include <zlib.h>

#include <array>
#include <cctype>
#include <cstdio>
#include <set>

namespace linealis::test {
namespace {

/// What a control holds, as a preset would set it.
struct Holds {
    std::string operator()(const TextField& field) const { return field.Text(); }
    std::string operator()(const Choice& choice) const { return std::string(choice.Selected()); }
    std::string operator()(const CheckBox& box) const { return box.Value() ? "on" : "off"; }
    std::string operator()(const Swatch& swatch) const
    {
        const Color color = swatch.Shown();
        std::array<char, 8> text{};
        std::snprintf(text.data(), text.size(), "#%02X%02X%02X", color.red, color.green, color.blue);
        return text.data();
    }
    std::string operator()(const Label& label) const { return label.Caption(); }
};

class EveryPreset : public testing::TestWithParam<Preset> {};

TEST_P(EveryPreset, TakesEffectAndLeavesTheOutputFile)
{
    const Preset& preset = GetParam();
    Paper paper(preset.kind, {"PopupUnits=cm", "PopupPaperSize=A5", "EditTopMargin=3"});
    paper.Generate();
    LayOver(preset, *paper.window, paper.platform);
    EXPECT_EQ(paper.window->OutputFile(), paper.file);
    EXPECT_EQ(paper.form["StaticFileName"].caption, "page.pdf");
    std::set<std::string_view> names;
    for (const auto& [name, value] : preset.settings) {
        EXPECT_TRUE(names.insert(name).second) << name << " is set twice";
        EXPECT_EQ(Visit(*paper.window->form.Find(name), Holds()), value) << name;
    }
    EXPECT_EQ(paper.form.Selected("PopupPaperSize"), preset.isMetric ? "A4" : "Letter");
    for (const Control* const control : paper.window->form.Controls()) {
        if (control->Kind() == ControlKind::Text) {
            EXPECT_EQ(paper.form.Remark(control->Name()), "") << control->Name();
        }
    }
    const Page page(paper.Content());
    EXPECT_GT(page.strokes, 10U);
    EXPECT_TRUE(paper.platform.messages.empty());
    for (const std::string& text : TextsOf(page.texts)) {
        EXPECT_TRUE(text.find("ample") == std::string::npos && text.find("xis") == std::string::npos) << text;
    }
}

TEST_P(EveryPreset, CompressesAsWellAsTheBestLevelOfZlib)
{
    Paper paper(GetParam().kind, {});
    LayOver(GetParam(), *paper.window, paper.platform);
    const std::string content = paper.Content();
    Turns turns([] {});
    const std::size_t size = Deflated(content, turns).View().size();
    for (int level = 1; level <= 9; ++level) {
        std::vector<Bytef> room(compressBound(content.size()));
        uLongf length = room.size();
        ASSERT_EQ(
            compress2(room.data(), &length, reinterpret_cast<const Bytef*>(content.data()), content.size(), level),
            Z_OK);
        EXPECT_LE(size, length) << "level " << level;
    }
}

INSTANTIATE_TEST_SUITE_P(Presets, EveryPreset, testing::ValuesIn(Presets().begin(), Presets().end()),
                         [](const auto& tested) {
                             std::string name(tested.param.id);
                             std::replace_if(
                                 name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
                             return name;
                         });

TEST(Presets, AreFortyWithNamesOfTheirOwn)
{
    std::set<std::string_view> ids, titles, kinds;
    for (const Preset& preset : Presets()) {
        ids.insert(preset.id);
        titles.insert(preset.title);
        kinds.insert(preset.kind);
        EXPECT_EQ(FindPreset(preset.id), &preset);
    }
    EXPECT_GE(ids.size(), 40U);
    EXPECT_EQ(ids.size(), Presets().size());
    EXPECT_EQ(titles.size(), Presets().size());
    EXPECT_EQ(kinds.size(), PaperKinds().size());
    EXPECT_EQ(FindPreset("squares"), nullptr);
    for (const bool metric : {true, false}) {
        const auto presets = PresetsFor(metric);
        EXPECT_EQ(presets.size(), Presets().size());
        EXPECT_EQ(presets.front()->isMetric, metric);
        EXPECT_EQ(presets.back()->isMetric, !metric);
    }
}

class OwnPresetsTest : public testing::Test {
protected:
    Names List(const PaperKind& kind) const
    {
        Names names;
        for (const OwnPreset& preset : own.List(kind)) {
            names.push_back(preset.name);
        }
        return names;
    }

    TemporaryFolder folder;
    OwnPresets own{FolderItem(folder / "prefs")};
    Paper paper{"grid", {"EditXScale=77"}};
    const PaperKind &grid = *FindPaperKind("grid"), &dots = *FindPaperKind("dots");
};

TEST_F(OwnPresetsTest, ComeBackAsTheyWereSaved)
{
    EXPECT_EQ(List(grid), Names{});
    EXPECT_FALSE(own.Save("Zoë's 2 & more.x", grid, *paper.window));
    EXPECT_FALSE(own.Save("A", grid, *paper.window));
    EXPECT_FALSE(own.Save("A", dots, *Paper("dots").window));
    WriteFile(folder / "prefs/presets/.hidden.setx", "");
    WriteFile(folder / "prefs/presets/other.txt", "");
    fs::create_directory(folder / "prefs/presets/folder.setx");
    EXPECT_EQ(List(grid), (Names{"A", "Zoë's 2 & more.x"}));
    EXPECT_EQ(List(dots), Names{"A"});

    Paper other("grid");
    other.Generate();
    EXPECT_FALSE(other.window->LayOver(own.List(grid)[1].file.OpenAsBinaryFile()));
    EXPECT_EQ(other.form.Text("EditXScale"), "77");
    EXPECT_EQ(other.window->OutputFile(), other.file);
    EXPECT_FALSE(OwnPresets::Delete(own.List(grid)[1]));
    EXPECT_EQ(List(grid), Names{"A"});
    EXPECT_TRUE(other.window->LayOver(FolderItem(folder / "missing.setx").OpenAsBinaryFile()));
    EXPECT_EQ(other.form.Text("EditXScale"), "77");
    EXPECT_FALSE(OwnPresets(FolderItem()).Save("A", grid, *paper.window)) << "nothing shall be kept";
}

TEST_F(OwnPresetsTest, BadNamesAreRefused)
{
    const Names bad = {"", " ", "a/b", "../a", ".a", "a\nb", std::string(201, 'a')};
    std::set<std::string> problems;
    for (const std::string& name : bad) {
        problems.insert(OwnPresets::NameProblem(name).English());
        EXPECT_TRUE(own.Save(name, grid, *paper.window)) << name;
    }
    EXPECT_EQ(problems.size(), 5U);
    EXPECT_EQ(problems.count(""), 0U);
    EXPECT_EQ(List(grid), Names{});
    EXPECT_FALSE(own.Save(std::string(200, 'a'), grid, *paper.window));
}

}  // namespace
}  // namespace linealis::test
