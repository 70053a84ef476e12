#include "desktop/dialogs/PadDialog.h"

#include "DesktopTestSupport.h"

namespace linealis::test {
namespace {

constexpr int longest = 30'000;  // milliseconds to wait for a pad

class PadDialog : public DesktopTest {
protected:
    using Act = std::function<void(desktop::PadDialog& dialog)>;

    static void AwaitMessage(desktop::PadDialog& dialog, const std::string& message)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return Child(dialog, "PadMessage").isVisible(); }, longest));
        EXPECT_EQ(Shown(dialog, "PadMessage"), message);
    }

    void GivesBack(desktop::PadDialog& dialog, const fs::path& path)
    {
        person.Answers<QFileDialog>([path](QFileDialog& asked) {
            Child<QLineEdit>(asked, "fileNameEdit").setText(ToQt(path.string()));
            Click(*asked.findChild<QDialogButtonBox*>()->buttons().first());
        });
        auto& backs = Child<QComboBox>(dialog, "PadBack");
        backs.setCurrentIndex(backs.findText(QStringLiteral("..."), Qt::MatchEndsWith));
        EXPECT_TRUE(QTest::qWaitFor([this] { return person.IsDone(); }));
    }

    /// Chooses what the dialog is to do, names the file, and waits for the end of the work.
    void Saves(const fs::path& path, const Act& choose, const Act& end)
    {
        person.Answers<desktop::PadDialog>([this, path, choose, end](desktop::PadDialog& dialog) {
            choose(dialog);
            person.NamesFile(path, "pdf",
                             dialog.parent()->objectName() == QLatin1String("LinedWindow") ? "Lined" : "Dots");
            if (fs::exists(path)) {
                person.Answers<QMessageBox>([](QMessageBox& box) { Click(*box.button(QMessageBox::Yes)); });
            }
            const QPointer<desktop::PadDialog> shown = &dialog;
            person.ActsWhen(
                [shown] {
                    return shown == nullptr || !shown->isVisible() || !Child(*shown, "PadPages").isEnabled() ||
                           Child(*shown, "PadMessage").isVisible();
                },
                [shown, end] {
                    if (shown != nullptr) {
                        end(*shown);
                    }
                });
            Click(Child(dialog, "PadSave"));
        });
    }
};

TEST_F(PadDialog, SavesWhatItsPictureShows)
{
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
            AwaitMessage(dialog, file.string() + "/pad.pdf: Not a directory");
            Press(dialog, Qt::Key_Escape);
        });
    ChooseItem(window, "FilePrintPad");
    EXPECT_EQ(folder.Names(), (Names{"expected.pdf", "pad.pdf"}));
}

TEST_F(PadDialog, TakesItsBackFromAFileOfTheSamePaper)
{
    QWidget& window = OpenPaper("lined");
    const auto save = [&](const char* kind, const char* name, const char* paper) {
        const std::string file = folder / name;
        EXPECT_EQ(Execute({LINEALIS_CLI_PATH, "save", kind, "--set", std::string("PopupPaperSize=") + paper,
                           "--set", "EditTopMargin=3", "-o", file})
                      .status,
                  0);
        return file;
    };
    const fs::path large = save("grid", "large.setx", "A3"), fits = save("grid", "fits.setx", "Letter");
    const fs::path damaged = folder / "damaged.setx", file = folder / "pad.pdf";
    WriteFile(damaged, "0.5");
    Saves(
        file,
        [&](desktop::PadDialog& dialog) {
            auto& backs = Child<QComboBox>(dialog, "PadBack");
            GivesBack(dialog, large);
            AwaitMessage(dialog,
                         "large.setx cannot be the back: its page has 842 × 1190 points, the front 612 × 792 "
                         "points");
            EXPECT_EQ(backs.currentText(), QStringLiteral("Blank")) << "it stays";
            GivesBack(dialog, damaged);
            EXPECT_EQ(Shown(dialog, "PadMessage").find("damaged.setx"), 0U) << Shown(dialog, "PadMessage");
            EXPECT_EQ(backs.currentText(), QStringLiteral("Blank"));
            GivesBack(dialog, fits);
            EXPECT_EQ(backs.currentText(), QStringLiteral("fits.setx..."));
            EXPECT_FALSE(Child(dialog, "PadMessage").isVisible());
            EXPECT_FALSE(Child(dialog, "PadPreset").isEnabled());
            dialog.findChild<QSpinBox*>(QStringLiteral("PadPages"))->setValue(2);
        },
        [](desktop::PadDialog& dialog) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }, longest))
                << Shown(dialog, "PadMessage");
        });
    ChooseItem(window, "FilePrintPad");
    EXPECT_EQ(Execute({LINEALIS_CLI_PATH, "pad", "lined", "--pages", "2", "--back", fits.string(), "-o",
                       folder / "expected.pdf"})
                  .status,
              0);
    const auto pictures = [&](const std::string& name) {
        return Execute({"pdftoppm", "-r", "20", "-gray", folder / name}).output;
    };
    EXPECT_EQ(pictures("pad.pdf"), pictures("expected.pdf"));
}

TEST_F(PadDialog, TellsWhatToCheckAndCanBeCanceled)
{
    QWidget& window = OpenPaper("dots");
    Enter(window, {"EditTopMargin=abc"});
    const fs::path file = folder / "pad.pdf";
    const Act nothing = [](desktop::PadDialog&) {};
    Saves(file, nothing, [](desktop::PadDialog& dialog) {
        AwaitMessage(dialog,
                     "Wrote pad.pdf.\nWarning: dots: Top margin: “abc” is not a number and counts as 0\nWarning: "
                     "dots: Top margin under 6.35 mm: many printers cannot print that close to the edge");
        EXPECT_EQ(Shown(dialog, "PadCancel"), "C&lose");
        Click(Child(dialog, "PadCancel"));
    });
    ChooseItem(window, "FilePrintPad");
    EXPECT_EQ(Shown(window, "StatusLine").substr(0, 13), "Wrote pad.pdf");
    const std::string old = ReadFile(file);

    Enter(window, {"EditTopMargin=.5", "PopupPaperSize=A0", "EditVertSpacing=0.01", "EditHorzSpacing=0.01"});
    Saves(file, nothing, [&](desktop::PadDialog& dialog) {
        EXPECT_FALSE(Child(dialog, "PadPages").isEnabled()) << "it works";
        QTest::qWait(200);
        Click(Child(dialog, "PadCancel"));
        AwaitMessage(dialog, "Canceled; pad.pdf is unchanged");
        EXPECT_EQ(ReadFile(file), old);
        EXPECT_TRUE(Child(dialog, "PadPages").isEnabled());
        Press(dialog, Qt::Key_Escape);
    });
    ChooseItem(window, "FilePrintPad");
    EXPECT_EQ(folder.Names(), (Names{"pad.pdf"}));
}

}  // namespace
}  // namespace linealis::test
