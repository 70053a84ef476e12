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

    void Gives(desktop::PadDialog& dialog, const char* list, const fs::path& path)
    {
        person.Answers<QFileDialog>([path](QFileDialog& asked) {
            Child<QLineEdit>(asked, "fileNameEdit").setText(ToQt(path.string()));
            Click(*asked.findChild<QDialogButtonBox*>()->buttons().first());
        });
        auto& choices = Child<QComboBox>(dialog, list);
        choices.setCurrentIndex(0);
        choices.setCurrentIndex(choices.findText(QStringLiteral("..."), Qt::MatchEndsWith));
        EXPECT_TRUE(QTest::qWaitFor([this] { return person.IsDone(); }));
    }

    static void ExpectsClosed(desktop::PadDialog& dialog)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }, longest)) << Shown(dialog, "PadMessage");
    }

    static void SetPages(const desktop::PadDialog& dialog, int pages)
    {
        Child<QSpinBox>(dialog, "PadPages").setValue(pages);
    }

    /// Expects that the file shows what the command line makes of these arguments, on every side.
    void ExpectSameAs(const fs::path& file, Names arguments) const
    {
        const std::string expected = folder / "expected.pdf";
        arguments.insert(arguments.begin(), {LINEALIS_CLI_PATH, "pad"});
        arguments.insert(arguments.end(), {"-o", expected});
        EXPECT_EQ(Execute(arguments).status, 0);
        const auto pictures = [](const std::string& name) {
            return Execute({"pdftoppm", "-r", "20", "-gray", name}).output;
        };
        EXPECT_EQ(pictures(file.string()), pictures(expected));
        const auto text = [](const std::string& name) { return Execute({"pdftotext", name, "-"}).output; };
        EXPECT_EQ(text(file.string()), text(expected));
        fs::remove(expected);
    }

    /// Chooses what the dialog is to do, names the file, and waits for the end of the work.
    void Saves(const fs::path& path, const Act& choose, const Act& end)
    {
        person.Answers<desktop::PadDialog>([this, path, choose, end](desktop::PadDialog& dialog) {
            choose(dialog);
            const QString kind = dialog.parent()->objectName().remove(QStringLiteral("Window"));
            person.NamesFile(path, "pdf", kind.toStdString());
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
            SetPages(dialog, 9);
            Choose(Child<QComboBox>(dialog, "PadUp"), "4 pages, with cut marks");
            EXPECT_FALSE(Child(dialog, "PadPreset").isEnabled());
            auto& back = Child<QComboBox>(dialog, "PadBack");
            back.setCurrentIndex(back.findText(QStringLiteral("Dots Paper")));
            EXPECT_TRUE(Child(dialog, "PadPreset").isEnabled());
            ClickBox(Child<QAbstractButton>(dialog, "PadNumbers"));
            EXPECT_EQ(Shown(dialog, "PadSummary"), "3 sheets of 11.69 × 16.53 in, printed on both sides");
        },
        ExpectsClosed);
    ChooseItem(window, "FilePrintPad");
    ExpectSameAs(file, {"lined", "--set", "PopupPaperSize=A5", "--set", "EditHorzSpacing=.3", "--pages", "9",
                        "--up", "4", "--back", "dots", "--numbers"});

    // A fault is shown, and nothing is lost.
    Saves(
        file / "pad.pdf",
        [](desktop::PadDialog& dialog) {
            EXPECT_EQ(Shown(dialog, "PadUp"), "4 pages, with cut marks") << "as last time";
        },
        [&](desktop::PadDialog& dialog) {
            AwaitMessage(dialog, "pad.pdf was not written: Not a directory");
            Press(dialog, Qt::Key_Escape);
        });
    ChooseItem(window, "FilePrintPad");
    EXPECT_EQ(folder.Names(), (Names{"pad.pdf"}));
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
            Gives(dialog, "PadBack", large);
            AwaitMessage(dialog,
                         "large.setx cannot be the back: its page has 842 × 1190 points, the front 612 × 792 "
                         "points");
            EXPECT_EQ(backs.currentText(), QStringLiteral("Blank")) << "it stays";
            Gives(dialog, "PadBack", damaged);
            EXPECT_EQ(Shown(dialog, "PadMessage").find("damaged.setx"), 0U) << Shown(dialog, "PadMessage");
            EXPECT_EQ(backs.currentText(), QStringLiteral("Blank"));
            Gives(dialog, "PadBack", fits);
            EXPECT_EQ(backs.currentText(), QStringLiteral("fits.setx..."));
            EXPECT_FALSE(Child(dialog, "PadMessage").isVisible());
            EXPECT_FALSE(Child(dialog, "PadPreset").isEnabled());
            SetPages(dialog, 2);
        },
        ExpectsClosed);
    ChooseItem(window, "FilePrintPad");
    ExpectSameAs(file, {"lined", "--pages", "2", "--back", fits.string()});
}

TEST_F(PadDialog, MakesAPageOfEachRowOfATable)
{
    QWidget& window = OpenPaper("lined");
    Enter(window, {"PopupPaperSize=A5"});
    const fs::path table = folder / "rows.csv", unknown = folder / "unknown.csv", wrong = folder / "wrong.csv";
    const fs::path sizes = folder / "sizes.csv", file = folder / "pad.pdf";
    std::string rows = "EditHorzSpacing\n";
    for (int row = 1; row <= 12; ++row) {
        rows += std::to_string(row) + "\n";
    }
    WriteFile(table, rows);
    WriteFile(unknown, "EditHorzSpacing,Height\n.3,1\n");
    WriteFile(wrong, "PopupPaperSize\nA5\nA9\n");
    WriteFile(sizes, "PopupPaperSize\nA5\nA4\n");
    Saves(
        file,
        [&](desktop::PadDialog& dialog) {
            auto& fronts = Child<QComboBox>(dialog, "PadFront");
            SetPages(dialog, 7);
            Gives(dialog, "PadFront", unknown);
            const std::string start =
                "unknown.csv, row 1: unknown control of lined 'Height'; possible: EditCustomHeight, ";
            EXPECT_EQ(Shown(dialog, "PadMessage").substr(0, start.size()), start);
            Gives(dialog, "PadFront", wrong);
            EXPECT_EQ(Shown(dialog, "PadMessage").find("wrong.csv, row 2: unknown item of PopupPaperSize 'A9'; "),
                      0U);
            EXPECT_EQ(fronts.currentText(), QStringLiteral("This form")) << "it stays";
            Gives(dialog, "PadFront", sizes);
            EXPECT_EQ(Shown(dialog, "PadSummary"), "2 sheets, each as large as its page");
            ClickBox(Child<QAbstractButton>(dialog, "PadNumbers"));
            AwaitMessage(dialog,
                         "The pages of a sheet must be of one size, but sizes.csv, row 1 has 421 by 595 points and "
                         "sizes.csv, row 2 595 by 842 points");
            EXPECT_FALSE(Child(dialog, "PadSave").isEnabled());
            Gives(dialog, "PadFront", table);
            EXPECT_FALSE(Child(dialog, "PadMessage").isVisible());
            EXPECT_EQ(fronts.currentText(), QStringLiteral("rows.csv..."));
            EXPECT_EQ(Child<QSpinBox>(dialog, "PadPages").value(), 12);
            Choose(Child<QComboBox>(dialog, "PadUp"), "2 pages, with cut marks");
            EXPECT_EQ(Shown(dialog, "PadSummary"), "6 sheets of 11.69 × 8.264 in");
        },
        ExpectsClosed);
    ChooseItem(window, "FilePrintPad");
    ExpectSameAs(file,
                 {"lined", "--set", "PopupPaperSize=A5", "--table", table.string(), "--up", "2", "--numbers"});
    const std::string pad = ReadFile(file);

    // As a booklet; the number of pages of the form was kept. The name of a table is no name for a pad.
    Saves(
        table,
        [&](desktop::PadDialog& dialog) {
            EXPECT_EQ(Child<QSpinBox>(dialog, "PadPages").value(), 7);
            Gives(dialog, "PadFront", table);
        },
        [&](desktop::PadDialog& dialog) {
            AwaitMessage(dialog, "rows.csv was not written: the name of a PDF file ends with .pdf");
            EXPECT_EQ(ReadFile(table), rows);
            Press(dialog, Qt::Key_Escape);
        });
    ChooseItem(window, "FilePrintPad");
    EXPECT_EQ(ReadFile(file), pad);
}

TEST_F(PadDialog, MakesBookletsAndPosters)
{
    QWidget& window = OpenPaper("hexagon");
    Enter(window, {"PopupPaperSize=A2"});
    const fs::path booklet = folder / "booklet.pdf", poster = folder / "poster.pdf";
    const auto length = [](desktop::PadDialog& dialog, const char* name, std::string_view text) {
        Fill(*Child(dialog, name).findChild<QLineEdit*>(), text);
        Press(dialog, Qt::Key_Tab);
        return Shown(dialog, name);
    };
    QSize size;
    Saves(
        booklet,
        [&](desktop::PadDialog& dialog) {
            size = dialog.size();
            Choose(Child<QComboBox>(dialog, "PadMake"), "Booklet");
            EXPECT_FALSE(Child(dialog, "PadUp").isVisible());
            SetPages(dialog, 16);
            Child<QDateEdit>(dialog, "PadFirstDate").setDate(QDate(2099, 12, 31));
            ClickBox(Child<QAbstractButton>(dialog, "PadDates"));
            EXPECT_EQ(length(dialog, "PadCreep", "3mm"), "0.118 in");
            EXPECT_EQ(length(dialog, "PadCreep", "thick"), "0.118 in") << "no length";
            EXPECT_EQ(length(dialog, "PadCreep", "7"), "0.2 in") << "the largest";
            EXPECT_EQ(length(dialog, "PadCreep", "1/8"), "0.125 in");
            EXPECT_EQ(Shown(dialog, "PadSummary"), "4 sheets of 33.06 × 23.39 in, printed on both sides");
        },
        ExpectsClosed);
    ChooseItem(window, "FilePrintPad");
    ExpectSameAs(booklet, {"hexagon", "--set", "PopupPaperSize=A2", "--booklet", "--pages", "16", "--creep",
                           "0.125in", "--dates", "2099-12-31"});

    Saves(
        poster,
        [&](desktop::PadDialog& dialog) {
            EXPECT_EQ(Shown(dialog, {"PadMake", "PadPages", "PadCreep"}), "Booklet 16 0.125 in") << "as last time";
            EXPECT_EQ(Child<QDateEdit>(dialog, "PadFirstDate").date(), QDate(2099, 12, 31));
            Choose(Child<QComboBox>(dialog, "PadMake"), "Poster");
            EXPECT_EQ(dialog.size(), size) << "it does not jump";
            Choose(Child<QComboBox>(dialog, "PadPaper"), "A6");
            EXPECT_EQ(length(dialog, "PadOverlap", "101.6mm"), "4 in");
            AwaitMessage(dialog, "A poster of Hexagon Graph Paper on A6 with an overlap of 4in has no room");
            EXPECT_FALSE(Child(dialog, "PadPrint").isEnabled());
            Choose(Child<QComboBox>(dialog, "PadPaper"), "A4");
            EXPECT_EQ(length(dialog, "PadOverlap", "1in"), "1 in");
            EXPECT_EQ(Shown(dialog, "PadSummary"), "8 sheets of 11.69 × 8.264 in");
        },
        ExpectsClosed);
    ChooseItem(window, "FilePrintPad");
    ExpectSameAs(poster, {"hexagon", "--set", "PopupPaperSize=A2", "--poster", "A4", "--overlap", "1in"});
}

TEST_F(PadDialog, TellsWhatToCheckAndCanBeCanceled)
{
    QWidget& window = OpenPaper("dots");
    Enter(window, {"EditTopMargin=abc"});
    const fs::path file = folder / "pad.pdf";
    const Act nothing = [](desktop::PadDialog&) {};
    Saves(file, nothing, [](desktop::PadDialog& dialog) {
        AwaitMessage(dialog, "Wrote pad.pdf.\nWarning: Top margin: “abc” is not a number and counts as 0\nWarning: "
                             "Top margin under 6.35 mm: many printers cannot print that close to the edge");
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
