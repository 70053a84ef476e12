#include "TestSupport.h"
#include "platform/BinaryStream.h"

namespace linealis::test {
namespace {

std::string P(std::string_view text)
{
    return static_cast<char>(text.size()) + std::string(text);
}

std::string Alias(std::string_view path)
{
    const auto size = path.size();
    return std::string{0, 0, static_cast<char>(size >> 8U), static_cast<char>(size)} + std::string(path);
}

/// A grid file as far as its alias, and from there on.
const std::string startOfFile = P("1.3.0") + P("1") + P("7") + P("0") + P("0") + P("1") + P("10") + P("90") +
                                P("110") + P("1.5") + P("2.5") + P("1") + P("2") + P("3") + P("4") + P("0");
const std::string rest =
    P("10") + P("20") + P("30") + P("0") + P("1") + P("0.7") + P("0.9") + P("5") + P("55") + P("155");

class SettingsFile : public GridTest {
protected:
    void Load(const std::string& bytes)
    {
        WriteFile(settings.Path(), bytes);
        EXPECT_FALSE(window->LoadSettings(settings));
    }

    std::string Saved()
    {
        EXPECT_FALSE(window->SaveSettings(settings));
        return ReadFile(settings.Path());
    }

    FolderItem settings{folder / "grid.setx"};
};

TEST_F(SettingsFile, IndicesAndChannelsOutOfRangeAreLimited)
{
    const auto load = [&](const std::string& index, const std::string& channel) {
        Load(P("9.9") + P(index) + P(index) + P("x") + P("") + P(index) + startOfFile.substr(16) + Alias("") +
             P(channel) + rest.substr(3, 6) + rest.substr(9, 4 + 8) + P(channel) + P("55") + P("155"));
        return std::vector{form.ListIndex("PopupOrientation"), form.ListIndex("PopupPaperSize"),
                           form.ListIndex("PopupUnits"), int{form.ColorOf("LinesColorCanvas").red},
                           int{form.ColorOf("BackgroundColorCanvas").red}};
    };
    EXPECT_EQ(load("99", "256"), (std::vector{1, 12, 1, 255, 0}));
    EXPECT_EQ(load("-5", "-1"), (std::vector{0, 0, 0, 0, 255}));
    EXPECT_EQ(load("1e308", "1e308"), (std::vector{1, 12, 1, 255, 0}));
    EXPECT_EQ(load("nan", "x"), (std::vector{0, 0, 0, 0, 255}));
    EXPECT_EQ(load("1.9", "1.9"), (std::vector{1, 1, 1, 1, 253}));
    EXPECT_EQ(form.ColorOf("LinesColorCanvas").blue, 30) << "the fields behind are in their places";
    EXPECT_EQ(form.Text("EditVertWeight"), "0.9");
}

TEST_F(SettingsFile, AliasResolvesOnlyToAPdf)
{
    form.SetText("EditHorzSpacing", "0.002");  // the producer line stands far behind the start
    Generate();
    const std::string own = page.Path().string();
    const std::string pdf = ReadFile(own);
    const auto resolved = [&](const std::string& alias) {
        window = Open();
        Load(startOfFile + alias + rest);
        EXPECT_EQ(window->form.StaticFileName.Caption(), window->OutputFile().Name());
        return window->OutputFile().Path().string();
    };
    EXPECT_EQ(resolved(Alias(own)), own);
    EXPECT_EQ(NamedForm(window->form).ColorOf("LinesColorCanvas"), (Color{10, 20, 30}));

    std::string foreign = pdf;
    foreign.replace(foreign.rfind("(Linealis)"), 10, "(Linear's)");
    const FolderItem other(folder / "foreign.pdf");
    WriteFile(other.Path(), foreign);
    EXPECT_EQ(resolved(Alias(other.Path().string())), other.Path()) << "such as one that a tool has made smaller";
    WriteFile(folder / "text.pdf", "/Producer (Linealis)\r");
    WriteFile(folder / "empty.pdf", "");
    for (const char* const name : {"text.pdf", "empty.pdf", "missing.pdf", ""}) {
        EXPECT_EQ(resolved(Alias((folder / name).string())), "") << name;
    }
    const fs::path old = fs::current_path();
    fs::current_path(folder / "");
    EXPECT_EQ(resolved(Alias("page.pdf")), "") << "relative";
    fs::current_path(old);
    EXPECT_EQ(resolved(Alias(own + '\0' + "x")), "");
    EXPECT_EQ(resolved(std::string("\x7F\xFF\xFF\xFF", 4) + own), "") << "longer than the file";
    EXPECT_EQ(resolved(std::string("\x80\0\0\0", 4) + own), "") << "negative";
    EXPECT_EQ(ReadFile(own), pdf);

    window = Open();
    Load(startOfFile + Alias((folder / "missing.pdf").string()) + rest);
    platform.saveQuestions.clear();
    Generate();
    EXPECT_EQ(platform.saveQuestions.size(), 1U) << "asks, since the file is gone";
}

TEST_F(SettingsFile, AForeignPdfIsReplacedOnlyIfTheUserSaysSo)
{
    const std::string foreign = "%PDF-1.7\nof another program";
    WriteFile(page.Path(), foreign);
    Load(startOfFile + Alias(page.Path().string()) + rest);
    form.SetValue("CheckBoxViewGraph", true);
    window->PushButtonGenerate_Action();
    EXPECT_EQ(ReadFile(page.Path()), foreign);
    EXPECT_EQ(window->OutputFile(), page);
    EXPECT_TRUE(platform.launched.empty());
    platform.buttonAnswer = MessageDialog::Button::Action;
    Generate();
    EXPECT_EQ(Complaints(page.Path()), "");
    WriteFile(page.Path(), foreign);
    Generate();
    EXPECT_EQ(Complaints(page.Path()), "");
    ASSERT_EQ(platform.dialogs.size(), 2U) << "asks once";
    EXPECT_EQ(platform.dialogs[0].message.English().find(page.Path().string()), 0U);

    WriteFile(page.Path(), foreign);
    window = Open();
    Generate();
    EXPECT_EQ(platform.dialogs.size(), 2U) << "the save dialog has asked";
}

TEST_F(SettingsFile, LongTextIsCutAndWhatFollowsStays)
{
    form.SetText("EditXScale", std::string(254, '1') + "é" + "22");
    form.SetText("EditYScale", std::string(300, '3'));
    form.SetText("EditVertWeight", "0.123");
    Saved();
    window = Open();
    EXPECT_FALSE(window->LoadSettings(settings));
    EXPECT_EQ(NamedForm(window->form).Text("EditXScale"), std::string(254, '1'));
    EXPECT_EQ(NamedForm(window->form).Text("EditYScale"), std::string(255, '3'));
    EXPECT_EQ(NamedForm(window->form).Text("EditVertWeight"), "0.123");
}

TEST_F(SettingsFile, FailuresLeaveFormAndFileSilently)
{
    form.SetText("EditXScale", "55");
    EXPECT_TRUE(window->LoadSettings(FolderItem(folder / "missing.setx")));
    EXPECT_TRUE(window->LoadSettings(FolderItem(folder / "")));
    EXPECT_TRUE(window->LoadSettings(FolderItem("/proc/self/mem"))) << "opens, and cannot be read";
    window->LoadSettings(FolderItem());
    window->SaveSettings(FolderItem());
    EXPECT_EQ(form.Text("EditXScale"), "55");
    EXPECT_TRUE(window->SaveSettings(FolderItem(folder / "missing/grid.setx")));
    EXPECT_TRUE(window->SaveSettings(FolderItem("/dev/full")));
    EXPECT_EQ(folder.Names(), Names{});
    EXPECT_TRUE(platform.messages.empty() && platform.fileErrors.empty());
    Load(std::string(5000, 'x'));
    EXPECT_EQ(Saved().substr(0, 6), P("1.3.0"));
}

}  // namespace
}  // namespace linealis::test
