#include "DesktopTestSupport.h"
#include "desktop/system/Application.h"
#include "desktop/window/PaperView.h"
#include "platform/Version.h"

#include <QClipboard>
#include <QFileOpenEvent>
#include <QListWidget>
#include <QScrollBar>
#include <QTextBrowser>
#include <QToolButton>

namespace linealis::test {
namespace {

class DesktopProgram : public DesktopTest {
protected:
    /// Lets a closed window go.
    static void Settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    /// Saves the settings of a fresh window with one value in it, and closes it.
    void SaveDocument(const std::string& kind, const std::string& assignment, const fs::path& path)
    {
        QWidget& window = OpenPaper(kind);
        Enter(window, {assignment});
        person.NamesFile(path, FindPaperKind(kind)->settingsType.extension, "Untitled");
        ChooseItem(window, "FileSaveAs");
        Press(window, Qt::Key_W, Qt::ControlModifier);
        Settle();
        EXPECT_EQ(FindWindow(kind), nullptr);
    }

    void Hand(const std::string& extension, const fs::path& path)
    {
        person.ReadsMessage(extension);
        program->OpenDocuments({ToQt(path.string())});
        EXPECT_TRUE(QTest::qWaitFor([this] { return person.IsDone(); }));
        Settle();
    }
};

TEST_F(DesktopProgram, GalleryOpensEveryKindOnce)
{
    QWidget& gallery = Window("gallery");
    EXPECT_EQ(gallery.windowTitle(), QStringLiteral("Linealis - Paper Gallery"));
    for (const QWidget* const widget : gallery.findChildren<QWidget*>()) {
        if (widget->isVisible()) {
            EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()))
                << widget->objectName().toStdString() << " reaches out of "
                << widget->parentWidget()->metaObject()->className();
        }
    }
    EXPECT_EQ(Shown(gallery, "StaticText1"), "Select one of the following types of graph paper to get started:");
    for (const PaperKind& kind : PaperKinds()) {
        SCOPED_TRACE(kind.name);
        EXPECT_EQ(Child(gallery, kind.picture).size(), QSize(102, 132));
        QWidget& window = OpenPaper(kind.name);
        EXPECT_EQ(window.windowTitle(), ToQt(kind.title));
        Enter(window, {"EditXScale=77"});
        EXPECT_EQ(&OpenPaper(kind.name), &window);
        EXPECT_EQ(Shown(window, "EditXScale"), "77");
        ChooseItem(gallery, kind.menuItem);
        EXPECT_EQ(&Window(kind.name), &window);
        EXPECT_EQ(Shown(window, "EditXScale"), "77");
        window.close();
        Settle();
    }
    ChooseItem(gallery, "WindowPolar");
    EXPECT_EQ(Shown(Window("polar"), "EditXScale"), "100") << "a closed window is made anew";
}

TEST_F(DesktopProgram, ManualOpensAtTheForm)
{
    for (const PaperKind& kind : PaperKinds()) {
        Press(OpenPaper(kind.name), Qt::Key_F1);
        QWidget& manual = Window("manual");
        const auto& chapters = Child<QListWidget>(manual, "ManualChapters");
        ASSERT_NE(chapters.currentItem(), nullptr);
        EXPECT_EQ(chapters.currentItem()->text().trimmed().toLower(), ToQt(kind.galleryTitle).toLower());
        const auto& bar = *Child<QTextBrowser>(manual, "ManualText").verticalScrollBar();
        EXPECT_GT(bar.value(), 0) << kind.name;
        Window(kind.name).close();
        Settle();
    }
    QWidget& manual = Window("manual");
    const auto& chapters = Child<QListWidget>(manual, "ManualChapters");
    int sections = 0;
    for (int i = 0; i < chapters.count(); ++i) {
        EXPECT_LT(chapters.item(i)->text().size(), 60) << "a heading is no paragraph";
        sections += chapters.item(i)->text().startsWith(QLatin1Char(' ')) ? 1 : 0;
    }
    EXPECT_GT(sections, 14);
    EXPECT_LT(sections, chapters.count());
    const auto& text = Child<QTextBrowser>(manual, "ManualText");
    const int last = text.verticalScrollBar()->value();
    Child<QToolButton>(manual, "ManualBack").click();
    EXPECT_NE(text.verticalScrollBar()->value(), last) << "back to the chapter before";
    const int size = text.font().pointSize();
    Press(manual, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(text.font().pointSize(), size);
    Press(manual, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(text.font().pointSize(), size);
    auto& search = Child<QLineEdit>(manual, "ManualSearch");
    search.setFocus();
    const auto selected = [&] { return text.textCursor().selectedText(); };
    Write(manual, "friedberg");
    Press(manual, Qt::Key_Return);
    EXPECT_EQ(Shown(manual, "ManualResult"), "Not found");
    search.selectAll();
    Write(manual, "gallery appears");
    Press(manual, Qt::Key_Return);
    EXPECT_EQ(selected(), QStringLiteral("gallery appears"));
    Press(manual, Qt::Key_F3);
    EXPECT_EQ(Shown(manual, "ManualResult"), "Continued from the other end");
    search.setFocus();
    Press(manual, Qt::Key_Escape);
    EXPECT_EQ(Shown(manual, "ManualSearch"), "");
    EXPECT_TRUE(manual.isVisible());
    Press(manual, Qt::Key_Escape);
    EXPECT_FALSE(manual.isVisible());
}

TEST_F(DesktopProgram, SelectedTextCanBeRead)
{
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QPalette palette = QApplication::palette();
        EXPECT_GE(desktop::Contrast(palette.color(group, QPalette::Highlight),
                                    palette.color(group, QPalette::HighlightedText)),
                  4.5);
    }
}

TEST_F(DesktopProgram, ReturnGenerates)
{
    QWidget& window = OpenPaper("crosses");
    GenerateAs(window, folder / "page.pdf");
    for (const char* const control : {"EditXScale", "PopupUnits", "CheckVertLines", "LineColorCanvas"}) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            fs::remove(folder / "page.pdf");
            Child(window, control).setFocus();
            Press(window, key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
            EXPECT_EQ(folder.Names(), Names({"page.pdf"})) << control;
        }
    }
    person.NamesPage(folder / "other.pdf");
    Press(window, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(folder.Names(), Names({"other.pdf", "page.pdf"}));
}

TEST_F(DesktopProgram, SettingsAreSavedAndOpened)
{
    QWidget& gallery = Window("gallery");
    for (const char* const item : {"FileOpen", "FileSave", "FileSaveAs"}) {
        EXPECT_FALSE(CanChoose(gallery, item)) << item;
    }
    QWidget& window = OpenPaper("brick");
    EXPECT_TRUE(CanChoose(window, "FileOpen"));
    EXPECT_FALSE(CanChoose(window, "FileSave"));
    Press(window, Qt::Key_S, Qt::ControlModifier);  // asks for nothing
    EXPECT_TRUE(Shown(window, "StatusLine").starts_with("This form has no settings file yet"));
    person.CancelsFile();
    emit Child<QLabel>(window, "StatusLine").linkActivated(QStringLiteral("saveAs"));

    person.CancelsFile();
    ChooseItem(window, "FileSaveAs");
    EXPECT_FALSE(CanChoose(window, "FileSave"));
    person.NamesFile(folder / "wall.setk", "setk", "Untitled");
    ChooseItem(window, "FileSaveAs");
    EXPECT_EQ(folder.Names(), Names({"wall.setk"}));
    const std::string saved = ReadFile(folder / "wall.setk");
    Enter(window, {"EditXScale=55"});
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_NE(ReadFile(folder / "wall.setk"), saved) << "the shortcut works without a look at the menu";
    EXPECT_TRUE(CanChoose(window, "FileSave"));
    Enter(window, {"EditXScale=66"});
    ChooseItem(window, "FileSave");

    Enter(window, {"EditXScale=1"});
    person.NamesFile(folder / "wall.setk", "setk", "");
    Press(window, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(Shown(window, "EditXScale"), "66");

    Press(window, Qt::Key_W, Qt::ControlModifier);
    Settle();
    QWidget& fresh = OpenPaper("brick");
    EXPECT_FALSE(CanChoose(fresh, "FileSave"));
    person.NamesFile(folder / "wall.setk", "setk", "");
    ChooseItem(fresh, "FileOpen");
    Enter(fresh, {"EditXScale=44"});
    Press(fresh, Qt::Key_S, Qt::ControlModifier);
    Hand("setk", folder / "wall.setk");
    EXPECT_EQ(Shown(fresh, "EditXScale"), "44");
}

TEST_F(DesktopProgram, ClosingAsksWhereASettingsFileIsNotUpToDate)
{
    const fs::path file = folder / "wall.setk";
    SaveDocument("brick", "EditXScale=50", file);
    const auto open = [&]() -> QWidget& {
        program->OpenSettings({ToQt(file.string())});
        return Window("brick");
    };
    const auto close = [&](const QString& button) {
        person.Answers<QMessageBox>([button](QMessageBox& box) {
            EXPECT_EQ(box.text(), QStringLiteral("Save the changes to wall.setk?"));
            for (QAbstractButton* const choice : box.buttons()) {
                if (choice->text() == button) {
                    Click(*choice);
                    return;
                }
            }
        });
        Press(Window("brick"), Qt::Key_W, Qt::ControlModifier);
        Settle();
        return FindWindow("brick") == nullptr;
    };
    Enter(open(), {"EditXScale=60"});
    EXPECT_FALSE(close(QStringLiteral("Cancel")));
    EXPECT_TRUE(close(QStringLiteral("Discard")));
    EXPECT_EQ(Shown(open(), "EditXScale"), "50");
    Enter(open(), {"EditXScale=70"});
    EXPECT_TRUE(close(QStringLiteral("Save")));
    QWidget& window = open();
    EXPECT_EQ(Shown(window, "EditXScale"), "70");
    Enter(window, {"EditXScale=80"});
    fs::remove(file);
    fs::create_directory(file);
    EXPECT_FALSE(close(QStringLiteral("Save")));
    EXPECT_TRUE(Shown(window, "StatusLine").starts_with("wall.setk could not be saved"));

    QWidget& fresh = OpenPaper("grid");
    EXPECT_EQ(Shown(fresh, "StatusLine"), "");
    Enter(fresh, {"EditXScale=90"});
    Press(fresh, Qt::Key_W, Qt::ControlModifier);
    Settle();
    QWidget& next = OpenPaper("grid");
    Settle();
    EXPECT_TRUE(Shown(next, "StatusLine").starts_with("You last left this form with other values"));
    emit Child<QLabel>(next, "StatusLine").linkActivated(QStringLiteral("bringBack"));
    EXPECT_EQ(Shown(next, "EditXScale"), "90");
}

TEST_F(DesktopProgram, FileDialogsBeginWithTheUsersDocuments)
{
    const QString home = QDir::homePath(), documents = home + QStringLiteral("/Documents");
    const auto expect = [&](const QString& place, const QString& name, const fs::path& path = {}) {
        person.Answers<QFileDialog>([=](QFileDialog& dialog) {
            auto& field = Child<QLineEdit>(dialog, "fileNameEdit");
            EXPECT_EQ(dialog.directory().absolutePath(), place);
            EXPECT_EQ(field.text().left(name.size()), name);
            field.setText(ToQt(path.string()));
            const auto buttons = dialog.findChild<QDialogButtonBox*>()->buttons();
            Click(*(path.empty() ? buttons.last() : buttons.first()));
        });
    };
    QWidget& window = OpenPaper("graph");
    expect(home, QStringLiteral("Untitled"));
    ChooseItem(window, "FileSaveAs");
    QDir(home).mkdir(QStringLiteral("Documents"));
    expect(documents, QStringLiteral("Untitled.pdf"));
    Click(Child(window, "PushButtonGenerate"));
    Child<QAction>(window, "Preset.semi-log-3").trigger();
    expect(documents, ToQt(FindPreset("semi-log-3")->title) + QStringLiteral(".pdf"));
    Click(Child(window, "PushButtonGenerate"));
    Enter(window, {"EditTitle=Yield (kg/ha)"});
    expect(documents, QStringLiteral("Yield (kg-ha)"), folder / "yield.setg");
    ChooseItem(window, "FileSaveAs");
    Enter(window, {"CheckBoxMarkers=on", "CheckBoxViewGraph=off"});
    expect(documents, QStringLiteral("Yield (kg-ha).pdf"), folder / "page.pdf");
    expect(ToQt((folder / "yield.setg").parent_path().string()), {});  // of the markers
    Click(Child(window, "PushButtonGenerate"));
    EXPECT_EQ(folder.Names(), Names({"page.pdf", "yield.setg"}));
    QDir(documents).removeRecursively();
}

TEST_F(DesktopProgram, DocumentsReachTheirWindow)
{
    SaveDocument("grid", "EditXScale=33", folder / "a b.setx");
    SaveDocument("dots", "EditDotWeight=4", folder / "d.setd");
    Hand("setx", folder / "a b.setx");
    QWidget& grid = Window("grid");
    EXPECT_EQ(Shown(grid, "EditXScale"), "33");
    Enter(grid, {"EditXScale=34"});
    Press(grid, Qt::Key_S, Qt::ControlModifier);  // it is the window's own file now
    Enter(grid, {"EditXScale=1"});
    Hand("setx", folder / "a b.setx");
    EXPECT_EQ(&Window("grid"), &grid);
    EXPECT_EQ(Shown(grid, "EditXScale"), "34");

    QFileOpenEvent fromTheSystem(ToQt((folder / "d.setd").string()));
    person.ReadsMessage("setd");
    QApplication::sendEvent(qApp, &fromTheSystem);
    EXPECT_TRUE(QTest::qWaitFor([this] { return person.IsDone(); }));
    Settle();
    EXPECT_EQ(Shown(Window("dots"), "EditDotWeight"), "4");

    Hand("txt", folder / "notes.txt");
    Hand("", folder / "notes");
    const auto isOpen = [](const PaperKind& kind) { return FindWindow(kind.name) != nullptr; };
    EXPECT_EQ(std::count_if(PaperKinds().begin(), PaperKinds().end(), isOpen), 2);

    // The box can be hidden for good.
    QFileOpenEvent again(ToQt((folder / "d.setd").string()));
    person.Answers<QMessageBox>([](QMessageBox& box) {
        EXPECT_TRUE(box.informativeText().startsWith(QStringLiteral("d.setd opens in the window of Dots Paper.")));
        Click(*box.checkBox(), {}, {8, box.checkBox()->height() / 2});
        Press(box, Qt::Key_Return);
    });
    QApplication::sendEvent(qApp, &again);
    EXPECT_TRUE(QTest::qWaitFor([this] { return person.IsDone(); }));
    Enter(Window("dots"), {"EditDotWeight=5"});
    QApplication::sendEvent(qApp, &again);
    EXPECT_TRUE(QTest::qWaitFor([] { return Shown(Window("dots"), "EditDotWeight") == "4"; }));
}

TEST_F(DesktopProgram, AFormInAPictureComesWholeOrNotAtAll)
{
    const auto open = [&](const std::string& text, const std::string& message) {
        WriteFile(folder / "p.svg", text);
        if (!message.empty()) {
            person.ReadsMessage("p.svg: " + message);
        }
        program->OpenDocuments({ToQt((folder / "p.svg").string())});
        Settle();
        EXPECT_TRUE(person.IsDone());
    };
    const auto svg = [](const std::string& controls) {
        return "<f:form xmlns:f=\"https://linealis.invalid/form\">{\"kind\": \"grid\", \"controls\": {" + controls +
               "}}</f:form>";
    };
    QWidget& grid = OpenPaper("grid");
    Enter(grid, {"EditXScale=44"});
    Child(grid, "CheckVertLines").setFocus();  // a field would undo what was typed into it
    open(svg(R"("units": "cm", "EditYScale": 5, ")" + std::string(1'000, 'x') + R"(": 1)"),
         "unknown control of grid '" + std::string(60, 'x') + "...'");
    open(svg(R"("units": "cm", "EditYScale": [5])"), "EditYScale is a text, a number, true or false, not a list");
    open("\x89PN", "is a picture that carries no form");
    EXPECT_EQ(Shown(grid, {"EditXScale", "EditYScale", "PopupUnits", "EditTopMargin"}), "44 100 inches 0.5");
    open(svg(R"("units": "cm", "EditYScale": 5)"), "");
    EXPECT_EQ(Shown(grid, {"EditXScale", "EditYScale", "PopupUnits", "EditTopMargin"}), "44 5 cm 1.27");
    ChooseItem(grid, "EditUndo");
    EXPECT_EQ(Shown(grid, {"EditXScale", "EditYScale", "PopupUnits"}), "44 100 inches");
    ChooseItem(grid, "EditUndo");
    EXPECT_EQ(Shown(grid, "EditXScale"), "100");
    EXPECT_FALSE(CanChoose(grid, "EditUndo"));
}

TEST_F(DesktopProgram, PreferencesAreAskedForAndKept)
{
    const auto set = [&](bool wasOn, const char* button) {
        person.Answers<QDialog>([=](QDialog& dialog) {
            auto& box = Child<QCheckBox>(dialog, "CheckBoxUpdateCheck");
            EXPECT_EQ(box.text(), QStringLiteral("Check For Updates"));
            EXPECT_EQ(box.isChecked(), wasOn);
            ClickBox(box);
            Click(Child(dialog, button));
        });
        ChooseItem(Window("gallery"), "EditPreferences");
    };
    set(false, "PushButton2");
    set(false, "PushButton1");
    set(true, "PushButton2");
    End();
    EXPECT_FALSE(ReadPrefs(PreferencesFile("LinealisPrefs")).noUpdateCheck);

    WriteNoUpdateCheck(true);
    Start();
    set(false, "PushButton2");
    End();
    EXPECT_TRUE(ReadPrefs(PreferencesFile("LinealisPrefs")).noUpdateCheck);
}

/// A page that takes long, over an old file.
class LongPage : public DesktopProgram {
protected:
    void SetUp() override
    {
        DesktopProgram::SetUp();
        window = &OpenPaper("dots");
        GenerateAs(*window, page);
        old = ReadFile(page);
        Enter(*window,
              {"PopupPaperSize=A2", "EditVertSpacing=0.01", "EditHorzSpacing=0.01", "CheckBoxViewGraph=on"});
        EXPECT_FALSE(Child(*window, "Progress").isVisible());
    }

    void WhenProgressShows(std::function<void()> act)
    {
        person.ActsWhen([this] { return Child(*window, "Progress").isVisible(); }, std::move(act));
    }

    void ExpectOldFile()
    {
        EXPECT_EQ(folder.Names(), Names({"page.pdf"}));
        EXPECT_EQ(ReadFile(page), old);
        EXPECT_EQ(viewer.shown, Names());
    }

    const fs::path page = folder / "page.pdf";
    std::string old;
    QWidget* window = nullptr;
};

TEST_F(LongPage, CanBeCancelled)
{
    WhenProgressShows([this] {
        Press(*window, Qt::Key_Return);
        Press(*window, Qt::Key_Return, Qt::ShiftModifier);  // would ask for a file
        Click(Child(*window, "PushButtonGenerate"));
        EXPECT_TRUE(Child(*window, "Progress").isVisible());
        Click(Child(*window, "PushButtonCancel"));
    });
    Click(Child(*window, "PushButtonGenerate"));
    ExpectOldFile();
    EXPECT_FALSE(Child(*window, "Progress").isVisible());
    EXPECT_FALSE(Child(*window, "PushButtonCancel").isVisible());

    Enter(*window, {"EditVertSpacing=1", "EditHorzSpacing=1"});
    Click(Child(*window, "PushButtonGenerate"));
    EXPECT_NE(ReadFile(page), old) << "the next page is not canceled";
    EXPECT_EQ(viewer.shown, Names({page}));
}

TEST_F(LongPage, IsNotCopiedOnceCancelled)
{
    QClipboard& clipboard = *QGuiApplication::clipboard();
    clipboard.setText(QStringLiteral("other"));
    WhenProgressShows([this] { Click(Child(*window, "PushButtonCancel")); });
    dynamic_cast<desktop::PaperView&>(*window).CopyPage();
    EXPECT_EQ(clipboard.text(), QStringLiteral("other"));
    EXPECT_EQ(Shown(*window, "StatusLine"), "Canceled; nothing was copied");
    ExpectOldFile();
}

TEST_F(LongPage, LeavesOtherWindowsAlive)
{
    WhenProgressShows([this] {
        QWidget& other = OpenPaper("grid");
        Enter(other, {"EditXScale=12"});
        GenerateAs(other, folder / "other.pdf");
        EXPECT_EQ(PageOf(folder / "other.pdf").front().substr(0, 7), "0.12000");
        fs::remove(folder / "other.pdf");
        Click(Child(*window, "PushButtonCancel"));
    });
    Click(Child(*window, "PushButtonGenerate"));
    ExpectOldFile();
}

TEST_F(LongPage, EndsBeforeItsWindowCloses)
{
    WhenProgressShows([this] { Press(*window, Qt::Key_W, Qt::ControlModifier); });
    Click(Child(*window, "PushButtonGenerate"));
    Settle();
    EXPECT_EQ(FindWindow("dots"), nullptr);
    ExpectOldFile();
    EXPECT_EQ(Shown(OpenPaper("dots"), "EditVertSpacing"), "0.5");
}

}  // namespace
}  // namespace linealis::test
