#include "desktop/window/PresetMenu.h"

#include "DesktopTestSupport.h"

#include <QInputDialog>

namespace linealis::test {
namespace {

using desktop::PresetMenuHost;

class PresetMenu : public testing::Test {
protected:
    PresetMenu()
    {
        platform.preferencesFolder = FolderItem(folder / "prefs");
        desktop::FillPresetMenu(menu, host);
    }

    /// Chooses the item of that name, as the menu shows it now.
    void Choose(const char* name)
    {
        emit menu.aboutToShow();
        Child<QAction>(menu, name).trigger();
    }

    static QImage Picture(const char* id)
    {
        return desktop::PresetPicture(*FindPreset(id), {48, 62}, 2.0).toImage();
    }

    TemporaryFolder folder;
    ScreenlessPlatform platform;
    const PaperKind& kind = *FindPaperKind("polar");
    std::unique_ptr<PaperWindow> window = MakeWindow(kind, platform);
    OwnPresets own{FolderItem(folder / "prefs")};
    std::vector<std::string> steps;
    QMenu menu;
    PresetMenuHost host{kind,
                        platform,
                        [this](const QString& title, const PresetMenuHost::Lay& lay) {
                            steps.push_back(title.toStdString());
                            lay(*window);
                        },
                        [this] { steps.emplace_back("as it was left"); },
                        [this] { own.Save("A & B", kind, *window); },
                        [this](bool on) { desktop::UseAsDefault(platform, kind, *window, on); },
                        [this](const OwnPreset& preset) { desktop::DeletePreset(platform, preset); },
                        [] {}};
};

TEST_F(PresetMenu, LaysPresetsOverTheWindow)
{
    Choose("Preset.polar-radians");
    EXPECT_EQ(window->form.Get<RadioGroup>("RadioButton1").Selected(), "Radians");
    EXPECT_EQ(menu.findChild<QAction*>("Preset.squares-5mm"), nullptr) << "of another kind";
    EXPECT_FALSE(Child<QAction>(menu, "PresetLeft").isEnabled());
    Choose("PresetSave");
    EXPECT_FALSE(own.SaveLeft(kind, *window));
    Choose("Preset.polar-15-degrees");
    Choose("OwnPreset.A & B");
    EXPECT_EQ(window->form.Get<RadioGroup>("RadioButton1").Selected(), "Radians");
    Choose("Preset.polar-15-degrees");
    Choose("PresetLeft");
    EXPECT_EQ(steps, (Names{"Polar in radians", "Polar, every 15 degrees", "A & B", "Polar, every 15 degrees",
                            "as it was left"}));
    fs::remove(own.List(kind)[0].file.Path());
    Child<QAction>(menu, "OwnPreset.A & B").trigger();
    ASSERT_EQ(platform.notes.size(), 1U);
    EXPECT_EQ(platform.notes[0].substr(0, 27), "A & B could not be opened: ");
}

TEST_F(PresetMenu, KeepsDefaultsAndDeletesPresets)
{
    for (const bool on : {true, false}) {
        Choose("PresetDefault");
        EXPECT_EQ(own.DefaultFile(kind).Exists(), on);
        emit menu.aboutToShow();
        EXPECT_EQ(Child<QAction>(menu, "PresetDefault").isChecked(), on);
    }
    Choose("PresetSave");
    for (const auto answer : {MessageDialog::Button::Cancel, MessageDialog::Button::Action}) {
        emit menu.aboutToShow();
        platform.buttonAnswer = answer;
        Child<QMenu>(menu, "PresetDelete").actions().at(0)->trigger();
        EXPECT_EQ(own.List(kind).empty(), answer == MessageDialog::Button::Action);
    }
}

TEST_F(PresetMenu, SavesUnderANameThatCanBe)
{
    desktop::DesktopPlatform screen;
    Person person;
    const auto names = [&](const char* name) {
        person.Answers<QInputDialog>([name](QInputDialog& dialog) {
            dialog.setTextValue(QString::fromLatin1(name));
            Press(dialog, Qt::Key_Return);
        });
    };
    names("a/b");
    person.ReadsMessage("The name of a preset cannot have a slash in it.");
    names("b");
    QWidget parent;
    window->form.EditXScale.SetText("77");
    desktop::SaveAsPreset(parent, screen, kind, *window);
    names("b");
    person.Answers<QMessageBox>([](QMessageBox& box) { Press(box, Qt::Key_Escape); });
    person.Answers<QInputDialog>([](QInputDialog& dialog) { Press(dialog, Qt::Key_Escape); });
    window->form.EditXScale.SetText("66");
    desktop::SaveAsPreset(parent, screen, kind, *window);
    EXPECT_TRUE(person.IsDone());

    const std::vector<OwnPreset> saved = OwnPresets(screen.PreferencesFolder()).List(kind);
    ASSERT_EQ(saved.size(), 1U);
    EXPECT_EQ(saved[0].name, "b");
    window->LayOver(saved[0].file.OpenAsBinaryFile());
    EXPECT_EQ(window->form.EditXScale.Text(), "77") << "it was not to be replaced";
}

TEST_F(PresetMenu, ShowsThePages)
{
    const QImage squares = Picture("squares-5mm"), dots = Picture("dots-5mm");
    EXPECT_EQ(squares.height(), 124);
    EXPECT_LT(squares.width(), 90);
    EXPECT_NE(squares, dots);
    const auto darkness = [](const QImage& image) {
        int sum = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                sum += 255 - qGray(image.pixel(x, y));
            }
        }
        return sum / (image.width() * image.height());
    };
    EXPECT_GT(darkness(squares), darkness(dots));
    EXPECT_LT(darkness(squares), 128);
}

}  // namespace
}  // namespace linealis::test
