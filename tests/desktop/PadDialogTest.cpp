#include "desktop/dialogs/PadDialog.h"

#include "DesktopTestSupport.h"

namespace linealis::test {
namespace {

constexpr int longest = 30'000;  // milliseconds to wait for a pad

class PadDialog : public DesktopTest {
protected:
    using Act = std::function<void(desktop::PadDialog& dialog)>;

    /// Chooses what the dialog is to do, names the file, and waits for the end of the work.
    void Saves(const fs::path& path, const Act& choose, const Act& end)
    {
        person.Answers<desktop::PadDialog>([this, path, choose, end](desktop::PadDialog& dialog) {
            choose(dialog);
            person.NamesFile(path, "pdf", "Lined");
            person.Answers<desktop::PadDialog>(end);
            Click(Child(dialog, "PadSave"));
        });
    }
};

TEST_F(PadDialog, SavesWhatItsPictureShows)
{
    if (!fs::exists(fs::path(LINEALIS_CLI_PATH).parent_path() / "linealis-pad")) {
        GTEST_SKIP() << "built without qpdf's library";
    }
    QWidget& window = OpenPaper("lined");
    Enter(window, {"PopupPaperSize=A5", "EditHorzSpacing=.3"});
    const fs::path file = folder / "pad.pdf";
    Saves(
        file,
        [](desktop::PadDialog& dialog) {
            dialog.findChild<QSpinBox*>(QStringLiteral("PadPages"))->setValue(9);
            Choose(Child<QComboBox>(dialog, "PadUp"), "4 pages, with cut marks");
            EXPECT_FALSE(Child(dialog, "PadPreset").isEnabled());
            auto& back = Child<QComboBox>(dialog, "PadBack");
            back.setCurrentIndex(back.findText(QStringLiteral("Dots Paper")));
            EXPECT_TRUE(Child(dialog, "PadPreset").isEnabled());
            ClickBox(Child<QAbstractButton>(dialog, "PadNumbers"));
            EXPECT_EQ(Shown(dialog, "PadSummary"), "3 sheets of 11.69 × 16.53 in, printed on both sides");
        },
        [](desktop::PadDialog& dialog) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }, longest))
                << Shown(dialog, "PadMessage");
        });
    ChooseItem(window, "FilePrintPad");
    EXPECT_EQ(
        Execute({LINEALIS_CLI_PATH, "pad", "lined", "--set", "PopupPaperSize=A5", "--set", "EditHorzSpacing=.3",
                 "--pages", "9", "--up", "4", "--back", "dots", "--numbers", "-o", folder / "expected.pdf"})
            .status,
        0);
    const std::string pages = Execute({"pdfinfo", file.string()}).output;
    EXPECT_NE(pages.find("Pages:           6\n"), std::string::npos) << pages;
    const auto text = [&](const std::string& name) { return Execute({"pdftotext", folder / name, "-"}).output; };
    EXPECT_EQ(text("pad.pdf"), text("expected.pdf"));
    EXPECT_NE(text("pad.pdf").find("9"), std::string::npos);

    // A fault of the program is shown in its words, and nothing is lost.
    Saves(
        file / "pad.pdf",
        [](desktop::PadDialog& dialog) {
            EXPECT_EQ(Shown(dialog, "PadUp"), "4 pages, with cut marks") << "as last time";
        },
        [&](desktop::PadDialog& dialog) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return Child(dialog, "PadMessage").isVisible(); }, longest));
            EXPECT_EQ(Shown(dialog, "PadMessage"), file.string() + "/pad.pdf: Not a directory");
            Press(dialog, Qt::Key_Escape);
        });
    ChooseItem(window, "FilePrintPad");
    EXPECT_EQ(folder.Names(), (Names{"expected.pdf", "pad.pdf"}));
}

}  // namespace
}  // namespace linealis::test
