#include "desktop/dialogs/PadDialog.h"

#include "DesktopTestSupport.h"

namespace linealis::test {
namespace {

class PadDialog : public DesktopTest {
protected:
    /// Chooses what the dialog is to do, and names the file. The dialog closes itself unless that fails.
    void Saves(const fs::path& path, const std::function<void(desktop::PadDialog& dialog)>& choose)
    {
        person.Answers<desktop::PadDialog>([this, path, choose](desktop::PadDialog& dialog) {
            choose(dialog);
            person.NamesFile(path, "pdf", "Lined");
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
    Enter(window, {"PopupPaperSize=A5", "EditVertSpacing=.3"});
    const fs::path file = folder / "pad.pdf";
    Saves(file, [](desktop::PadDialog& dialog) {
        dialog.findChild<QSpinBox*>(QStringLiteral("PadPages"))->setValue(9);
        Choose(Child<QComboBox>(dialog, "PadUp"), "4 pages, with cut marks");
        EXPECT_FALSE(Child(dialog, "PadPreset").isEnabled());
        Choose(Child<QComboBox>(dialog, "PadBack"), "Dots");
        EXPECT_TRUE(Child(dialog, "PadPreset").isEnabled());
        ClickBox(Child<QAbstractButton>(dialog, "PadNumbers"));
        EXPECT_EQ(Shown(dialog, "PadSummary"), "3 sheets of 11.69 × 16.53 in, printed on both sides");
    });
    ChooseItem(window, "FilePrintPad");
    EXPECT_EQ(
        Execute({LINEALIS_CLI_PATH, "pad", "lined", "--set", "PopupPaperSize=A5", "--set", "EditVertSpacing=.3",
                 "--pages", "9", "--up", "4", "--back", "dots", "--numbers", "-o", folder / "expected.pdf"})
            .status,
        0);
    const std::string pages = Execute({"pdfinfo", file.string()}).output;
    EXPECT_NE(pages.find("Pages:           6\n"), std::string::npos) << pages;
    const auto text = [&](const std::string& name) { return Execute({"pdftotext", folder / name, "-"}).output; };
    EXPECT_EQ(text("pad.pdf"), text("expected.pdf"));
    EXPECT_NE(text("pad.pdf").find("9"), std::string::npos);

    // A fault of the program is shown in its words, and nothing is lost.
    Saves(file / "pad.pdf", [](desktop::PadDialog& dialog) {
        EXPECT_EQ(Shown(dialog, "PadUp"), "4 pages, with cut marks") << "as last time";
    });
    person.ActsWhen(
        [] {
            auto* const dialog = qobject_cast<desktop::PadDialog*>(QApplication::activeModalWidget());
            return dialog != nullptr && Child(*dialog, "PadMessage").isVisible();
        },
        [&] {
            QWidget& dialog = *QApplication::activeModalWidget();
            EXPECT_EQ(Shown(dialog, "PadMessage"), file.string() + "/pad.pdf: Not a directory");
            Press(dialog, Qt::Key_Escape);
        });
    ChooseItem(window, "FilePrintPad");
    EXPECT_EQ(folder.Names(), (Names{"expected.pdf", "pad.pdf"}));
}

}  // namespace
}  // namespace linealis::test
