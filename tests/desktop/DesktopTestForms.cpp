#include "DesktopTestSupport.h"
#include "LoadSupport.h"
#include "desktop/form/FormGroup.h"
#include "desktop/window/PaperView.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QRegularExpression>
#include <map>

namespace linealis::test {
namespace {

struct KindValues {
    std::string kind;
    Names own;
};

void PrintTo(const KindValues& values, std::ostream* stream)
{
    *stream << values.kind;
}

class EveryKind : public DesktopTest, public testing::WithParamInterface<KindValues> {};

TEST_P(EveryKind, PageIsThatOfTheCommandLine)
{
    QWidget& window = OpenPaper(GetParam().kind);
    EXPECT_EQ(window.windowTitle(), ToQt(FindPaperKind(GetParam().kind)->title));
    Names values = {
        "PopupUnits=cm",    "PopupPaperSize=Custom", "EditCustomWidth=16.5",         "PopupOrientation=Landscape",
        "EditLeftMargin=2", "EditXScale=90",         "BackgroundColorCanvas=#ffeedd"};
    values.insert(values.end(), GetParam().own.begin(), GetParam().own.end());
    Names command = {LINEALIS_CLI_PATH, "generate", GetParam().kind, "-o", folder / "cli.pdf"};
    for (const std::string& value : values) {
        const bool typed = qobject_cast<QLineEdit*>(&Child(window, value.substr(0, value.find('='))));
        command.insert(command.end(), {typed ? "--type" : "--set", value});
    }
    const Finished made = Execute(command);
    ASSERT_EQ(made.status, 0) << made.errors;

    Enter(window, values);
    GenerateAs(window, folder / "window.pdf");
    EXPECT_EQ(PageOf(folder / "window.pdf"), PageOf(folder / "cli.pdf"));
    EXPECT_EQ(viewer.shown, Names());
}

TEST_P(EveryKind, TabGoesOverTheFormAsItIsRead)
{
    QWidget& window = OpenPaper(GetParam().kind);
    const auto place = [&](QWidget* stop) { return QRect(stop->mapTo(&window, QPoint()), stop->size()); };
    QWidget* const first = &Child(window, "PopupPaperSize");
    first->setFocus(Qt::TabFocusReason);
    std::size_t stops = 0;
    for (QWidget* last = first; stops < 100; last = window.focusWidget()) {
        ++stops;
        Press(window, Qt::Key_Tab);
        QWidget* const next = window.focusWidget();
        if (next == first) {
            break;
        }
        const QRect from = place(last), to = place(next);
        EXPECT_TRUE(to.top() > from.center().y() || to.left() > from.right())
            << last->objectName().toStdString() << " -> " << next->objectName().toStdString();
    }
    const auto& controls = program->Application().ShowPaper(*FindPaperKind(GetParam().kind)).form.Controls();
    const auto takesFocus = [](const Control* control) {
        return control->IsEnabled() && control->Kind() != ControlKind::Label;
    };
    const auto fields = std::count_if(controls.begin(), controls.end(), takesFocus);
    const std::size_t buttons = GetParam().kind == "graph" ? 6 : 3;  // with the marker file and two wizards
    EXPECT_EQ(stops, static_cast<std::size_t>(fields) + buttons);
}

const std::vector<KindValues> everyKind = {
    KindValues{"graph",
               {"EditXAxisMaximum=40", "PopupYAxis=Log 3 Decades", "EditTitle=Yield (kg)", "PopupFont1=Times Bold",
                "CheckAutoPosXAxisText=on", "MajorLineColorCanvas=#804020"}},
    KindValues{"axonometric", {"EditSize=0.9", "CheckBoxVertical=off", "LineColorCanvas=#102030"}},
    KindValues{"cornell", {"EditDate=1 May", "EditNoteWidth=60", "CheckCueLeft=off", "CheckGrid=on"}},
    KindValues{"crosses", {"EditCrossHeight=.3", "CheckVertLines=on", "LinesColorCanvas=#00a0ff"}},
    KindValues{"dots", {"EditHorzSpacing=.7", "EditDotWeight=3", "CheckHorzLines=on", "EditVertWeight=2"}},
    KindValues{"engineering", {"EditVertiSpacing=4", "EditBlankLeft=2", "LineColorCanvas=#008000"}},
    KindValues{"hexagon", {"EditSize=.8", "EditMinorLineThickness=.4", "CheckBoxFrame=off"}},
    KindValues{"isometric", {"EditSize=.8", "EditLineThickness=.4"}},
    KindValues{"lined", {"EditHorzSpacing=3", "EditBlankTop=1", "CheckBoxDrawVertical=off"}},
    KindValues{"polar", {"EditNumSpokes=8", "RadioButton1=Radians", "EditTitle=Wind", "TextColorCanvas=#ff0000"}},
    KindValues{"trapezoid", {"EditSize=.8", "CheckBoxHorizontal=off"}},
    KindValues{"ternary", {"PopupScaling=Axis", "EditAxisMaximum=10", "CheckBoxFlip=on"}},
    KindValues{"grid", {"EditVertSpacing=1.5", "CheckVertLines=off", "EditVertWeight=2"}},
    KindValues{"brick", {"EditHorzSpacing=2", "EditVertWeight=1.5"}}};

INSTANTIATE_TEST_SUITE_P(Desktop, EveryKind, testing::ValuesIn(everyKind),
                         [](const auto& test) { return test.param.kind; });

TEST(DesktopForms, HaveValuesOfEveryKind)
{
    for (const PaperKind& kind : PaperKinds()) {
        EXPECT_TRUE(
            std::any_of(everyKind.begin(), everyKind.end(), [&](const auto& own) { return own.kind == kind.name; }))
            << kind.name << ": add what a person enters into its form to everyKind";
    }
}

class DesktopForm : public DesktopTest {
protected:
    using Fields = std::initializer_list<std::string_view>;

    static void ExpectEnabled(const QWidget& window, bool enabled, Fields fields)
    {
        for (const std::string_view field : fields) {
            EXPECT_EQ(Child(window, field).isEnabled(), enabled) << field;
        }
    }

    /// All the remarks that a window shows.
    static Names Remarks(const QWidget& window)
    {
        Names texts;
        for (const QLabel* const label :
             window.findChildren<QLabel*>(QRegularExpression(QStringLiteral("^Remark")))) {
            const bool isRemark =
                label->palette().color(QPalette::WindowText) == desktop::RemarkColor(window.palette());
            if (label->isVisible() && isRemark) {
                texts.push_back(label->text().toStdString());
            }
        }
        return texts;
    }
};

TEST_F(DesktopForm, RemarksComeAndGoWhileTyping)
{
    QWidget& polar = OpenPaper("polar");
    EXPECT_EQ(Remarks(polar), Names());
    Enter(polar, {"EditXScale=9x", "EditNumCircles=0.4", "EditNumSpokes=7.5"});
    EXPECT_EQ(Remarks(polar), Names({"X Scale: “9x” is not a number and counts as 9",
                                     "Circles: counts as 1; Spokes: counts as 7"}));
    Click(Child(polar, "EditXScale"));
    Press(polar, Qt::Key_End);
    Press(polar, Qt::Key_Backspace);
    EXPECT_EQ(Remarks(polar), Names({"Circles: counts as 1; Spokes: counts as 7"}));
    Enter(polar, {"EditNumCircles=4", "EditNumSpokes=7", "EditTitle=a (b"});
    EXPECT_EQ(Remarks(polar), Names({"Title: parentheses must be balanced, or the page is damaged"}));
    Write(polar, ")");
    EXPECT_EQ(Remarks(polar), Names());
    Write(polar, "\\");
    EXPECT_EQ(Remarks(polar), Names({"Title: a backslash changes how the text after it prints"}));

    QGuiApplication::clipboard()->setText(QStringLiteral("10 \u00E9 \u65E5"));
    Enter(polar, {"EditTitle="});
    Press(polar, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Remarks(polar), Names({"Title: “日” cannot be printed and is replaced by “?”"}));
    Press(polar, Qt::Key_Backspace);
    EXPECT_EQ(Remarks(polar), Names());

    // A field that does not count needs no remark.
    QWidget& grid = OpenPaper("grid");
    Enter(grid, {"EditHorzWeight=-1"});
    EXPECT_EQ(Remarks(grid), Names({"Line Weight: should not be negative"}));
    const QImage field = Child(grid, "EditHorzWeight").grab().toImage();
    EXPECT_EQ(field.pixelColor(field.width() / 2, 3), grid.palette().color(QPalette::Base))
        << "inside the red frame";
    Enter(grid, {"CheckVertLines=off"});
    EXPECT_EQ(Remarks(grid), Names());

    // The page corrects the field itself, and with it goes the remark.
    QWidget& note = OpenPaper("cornell");
    Enter(note, {"EditNoteWidth=120", "EditHorzSpacing=0"});
    EXPECT_EQ(Remarks(note).size(), 1U) << "of one group";
    GenerateAs(note, folder / "page.pdf");
    EXPECT_EQ(Shown(note, {"EditNoteWidth", "EditHorzSpacing"}), "100 5");
    EXPECT_EQ(Remarks(note), Names());
}

/// Sets controls as screen readers and dictation do, by other means than keys and clicks.
class Assistant {
public:
    Assistant(QWidget& theWindow, Person& thePerson) : window(theWindow), person(thePerson) {}

    void operator()(const TextField& field)
    {
        Accessible(field.Name()).setText(QAccessible::Value, QStringLiteral("55"));
        EXPECT_EQ(field.Text(), "55");
    }
    void operator()(const Popup& popup)
    {
        const int last = static_cast<int>(popup.Items().size()) - 1;
        Child<QComboBox>(window, popup.Name()).setCurrentIndex(last);
        EXPECT_EQ(popup.ListIndex(), last);
    }
    void operator()(const RadioGroup& group)
    {
        const std::size_t last = group.Items().size() - 1;
        Toggle(std::string(group.Name()) + std::to_string(last));
        EXPECT_EQ(group.ListIndex(), static_cast<int>(last));
    }
    void operator()(const CheckBox& box)
    {
        const bool before = box.Value();
        Toggle(box.Name());
        EXPECT_NE(box.Value(), before);
    }
    void operator()(const Swatch& swatch)
    {
        person.ChoosesColor(Qt::magenta, true);
        Accessible(swatch.Name()).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_TRUE(QTest::qWaitFor([&] { return swatch.Shown() == Color({255, 0, 255}); }));
    }
    void operator()(const Label& /*label*/) {}

private:
    QAccessibleInterface& Accessible(std::string_view name)
    {
        return *QAccessible::queryAccessibleInterface(&Child(window, name));
    }
    void Toggle(std::string_view name)
    {
        Accessible(name).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    }

    QWidget& window;
    Person& person;
};

TEST_F(DesktopForm, FollowsWhateverItsControlsShow)
{
    for (const PaperKind& kind : PaperKinds()) {
        auto& view = dynamic_cast<desktop::PaperView&>(OpenPaper(kind.name));
        PaperForm& form = view.Window().form;
        const auto before = form.State();
        Assistant assistant(view, person);
        for (Control* const control : form.Controls()) {
            if (!control->IsEnabled()) {
                continue;
            }
            SCOPED_TRACE(std::string(kind.name) + ": " + std::string(control->Name()));
            Visit(*control, assistant);
            view.Undo();
            EXPECT_EQ(form.State(), before) << "it is one step";
            EXPECT_FALSE(view.History().CanUndo());
        }
        view.close();
        QCoreApplication::processEvents();
    }

    QWidget& graph = OpenPaper("graph");
    const auto set = [&](std::string_view name, const char* text) {
        QAccessible::queryAccessibleInterface(&Child(graph, name))->setText(QAccessible::Value, ToQt(text));
    };
    set("EditXAxisMaximum", "105");
    EXPECT_EQ(Shown(graph, "EditXLineSpacing"), "20.0002");
    set("EditLeftMargin", "5mm");
    EXPECT_EQ(Shown(graph, "EditLeftMargin"), "0.1968504") << "nobody will leave the field";
}

TEST_F(DesktopForm, LengthsTakeUnitsAndNumbersStep)
{
    QWidget& window = OpenPaper("grid");
    const auto places = [&] {
        Names all;
        for (const QWidget* const widget : window.findChildren<QWidget*>()) {
            if (widget->objectName() == QLatin1String("StatusLine") ||
                widget->objectName() == QLatin1String("CheckButton")) {
                continue;  // which share their room
            }
            const QRect at = widget->geometry();
            all.push_back(widget->objectName().toStdString() + " " + std::to_string(at.x()) + " " +
                          std::to_string(at.y()) + " " + std::to_string(at.width()) + " " +
                          std::to_string(at.height()));
        }
        return all;
    };
    QTest::qWait(50);
    const Names before = places();
    auto& field = Child<QLineEdit>(window, "EditVertSpacing");
    Click(field);
    field.selectAll();
    Write(window, "5 mm");
    EXPECT_EQ(Remarks(window), Names({"Vertical Spacing: becomes 0.1968504 when you leave the field"}));
    QTest::qWait(50);
    const Names now = places();
    for (std::size_t i = 0; i < now.size(); ++i) {
        EXPECT_EQ(now[i], before.at(i)) << "a remark has its room";
    }
    Press(window, Qt::Key_Tab);
    EXPECT_EQ(Shown(window, {"EditVertSpacing", "ReadoutEditVertSpacing"}), "0.1968504 in = 5.0 mm");
    EXPECT_EQ(Shown(window, "RemarkEditVertSpacing"), "30 by 50 cells of 0.25 by 0.197 in");
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Down}) {
        Press(window, key);
    }
    EXPECT_EQ(Shown(window, "EditHorzSpacing"), "0.8");
    Press(window, Qt::Key_Tab);
    Child<QAbstractButton>(window, "ToolUndo").click();
    EXPECT_EQ(Shown(window, {"EditVertSpacing", "EditHorzSpacing"}), "0.1968504 0.25");
    Child<QAbstractButton>(window, "ToolUndo").click();
    EXPECT_EQ(Shown(window, {"EditVertSpacing", "StatusLine"}), "0.25 Undid: Vertical Spacing 0.25 → 0.1968504");

    Click(field);
    field.selectAll();
    Write(window, "1/2");
    EXPECT_EQ(Shown(window, "StatusLine"), "") << "what it said is past";
    GenerateAs(window, folder / "page.pdf");  // without leaving the field
    EXPECT_EQ(Shown(window, "EditVertSpacing"), "0.5");
    EXPECT_EQ(Child(window, "LinesColorCanvas").accessibleDescription(), QStringLiteral("#000000 (black)"));
}

TEST_F(DesktopForm, OneClickCopiesARowAndMarginsStayEqual)
{
    const std::initializer_list<std::string_view> yGrid = {"PopupYAxis", "EditYLineSpacing", "EditYMajor",
                                                           "EditYMajorWeight"};
    const std::initializer_list<std::string_view> margins = {"EditTopMargin", "EditBottomMargin", "EditLeftMargin",
                                                             "EditRightMargin"};
    QWidget& window = OpenPaper("graph");
    const std::string before = Shown(window, yGrid);
    Enter(window, {"PopupXAxis=Log 2 Decades", "EditXMajorWeight=2"});
    Child<QAbstractButton>(window, "CopyStaticTextYGrid").click();
    EXPECT_EQ(Shown(window, yGrid),
              Shown(window, {"PopupXAxis", "EditXLineSpacing", "EditXMajor", "EditXMajorWeight"}));
    EXPECT_NE(Shown(window, yGrid), before);
    Child<QAbstractButton>(window, "ToolUndo").click();
    EXPECT_EQ(Shown(window, yGrid), before) << "one step";

    const std::string old = Shown(window, margins);
    Child<QAbstractButton>(window, "LinkMargins").setChecked(true);
    Enter(window, {"EditLeftMargin=2"});
    Press(window, Qt::Key_Tab);
    for (const std::string_view margin : margins) {
        EXPECT_EQ(Shown(window, margin), "2");
    }
    Child<QAbstractButton>(window, "ToolUndo").click();
    EXPECT_EQ(Shown(window, margins), old);
}

TEST_F(DesktopForm, SwatchAsksForAColor)
{
    QWidget& window = OpenPaper("grid");
    const auto color = [&] {
        const QImage image = Child(window, "LinesColorCanvas").grab().toImage();
        return image.pixelColor(image.rect().center()).name().toStdString();
    };
    person.ChoosesColor(QColor(10, 11, 254), true);
    Click(Child(window, "LinesColorCanvas"));
    EXPECT_EQ(color(), "#0a0bfe");
    person.ChoosesColor(Qt::red, false);
    Click(Child(window, "LinesColorCanvas"));
    EXPECT_EQ(color(), "#0a0bfe");
}

TEST_F(DesktopForm, EditMenuWorksInTextFields)
{
    QWidget& window = OpenPaper("polar");
    const auto select = [&](std::string_view field) {
        Click(Child(window, field));
        Press(window, Qt::Key_A, Qt::ControlModifier);
    };
    select("EditTitle");
    ChooseItem(window, "EditCopy");
    select("EditTitleSize");
    ChooseItem(window, "EditPaste");
    EXPECT_EQ(Shown(window, "EditTitleSize"), "Sample Polar Graph Paper");
    EXPECT_EQ(Remarks(window).size(), 1U) << "pasted is typed";
    ChooseItem(window, "EditUndo");
    EXPECT_EQ(Shown(window, "EditTitleSize"), "20");
    EXPECT_EQ(Remarks(window).size(), 0U);
    select("EditTitle");
    ChooseItem(window, "EditCut");
    EXPECT_EQ(Shown(window, "EditTitle"), "");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Sample Polar Graph Paper"));
    select("EditTitleY");
    ChooseItem(window, "EditClear");
    EXPECT_EQ(Shown(window, "EditTitleY"), "");
    for (const char* const item : {"EditCut", "EditCopy", "EditClear", "EditPaste"}) {
        Click(Child(window, "EditTitleSize"));
        EXPECT_EQ(CanChoose(window, item), std::string_view(item) == "EditPaste")
            << item << ": nothing is selected";
    }
    Child(window, "PopupUnits").setFocus();
    for (const char* const item : {"EditCut", "EditCopy", "EditPaste", "EditClear"}) {
        EXPECT_FALSE(CanChoose(window, item)) << item << ": there is no text";
    }

    // The form has followed.
    GenerateAs(window, folder / "page.pdf");
    const Names page = PageOf(folder / "page.pdf");
    EXPECT_EQ(std::find(page.begin(), page.end(), "(Sample Polar Graph Paper) Tj"), page.end());
}

TEST_F(DesktopForm, ManyPagesInOneWindowUnderLoad)
{
    QWidget& window = OpenPaper("lined");
    GenerateAs(window, folder / "page.pdf");
    CheckLoad([&](int) { Click(Child(window, "PushButtonGenerate")); });
    EXPECT_EQ(Complaints(folder / "page.pdf"), "");
}

TEST_F(DesktopForm, WizardFillsTheGraph)
{
    QWidget& window = OpenPaper("graph");
    const std::initializer_list<std::string_view> results = {"EditXAxisMinimum", "EditXAxisMaximum",
                                                             "EditXAxisStep",    "EditXMajor",
                                                             "EditXAxisSpacing", "EditXLineSpacing"};
    const std::string before = Shown(window, results);
    const auto wizard = [&](const char* button) {
        person.Answers<QDialog>([this, button](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Easy Graph Wizard"));
            Enter(dialog, {"EditMinX=0", "EditMaxX=14", "EditMinorXSpacing=0.5", "EditMajorXSpacing=2"});
            Click(Child(dialog, button));
        });
        Click(Child(window, "PushButtonEasyWizard"));
    };
    wizard("PushButton2");
    EXPECT_EQ(Shown(window, results), before);
    wizard("PushButton1");
    EXPECT_EQ(Shown(window, results), "0 14 0.5 4 4 4.00004");
}

TEST_F(DesktopForm, DataRangesShowOnTheFormUntilCanceled)
{
    QWidget& window = OpenPaper("graph");
    const std::initializer_list<std::string_view> results = {"EditXAxisMinimum", "EditXAxisMaximum",
                                                             "EditXAxisStep",    "EditXLineSpacing",
                                                             "PopupYAxis",       "EditYAxisWeight"};
    Enter(window, {"EditYAxisWeight=2"});
    const std::string before = Shown(window, results);
    const std::string fitted = "0 280 5 8 Log 3 Decades 2";
    const auto answer = [&](QDialogButtonBox::StandardButton button) {
        person.Answers<QDialog>([&, button](QDialog& dialog) {
            EXPECT_EQ(Shown(dialog, {"EditMinX", "EditMaxX"}), "-35 35") << "the range of the form";
            auto& ok = *dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
            Enter(dialog, {"EditMinX=0", "EditMaxX=25O"});
            EXPECT_FALSE(ok.isEnabled());
            EXPECT_NE(Shown(dialog, "DataRangeOutcome").find("25O"), std::string::npos);
            Enter(dialog, {"EditMaxX=250", "EditMinY=2", "EditMaxY=1000"});
            ClickBox(Child<QCheckBox>(dialog, "CheckLogY"));
            EXPECT_EQ(Shown(window, results), fitted) << "before OK";
            EXPECT_TRUE(ok.isEnabled());
            Click(*dialog.findChild<QDialogButtonBox*>()->button(button));
        });
        Click(Child(window, "PushButtonDataRange"));
    };
    answer(QDialogButtonBox::Cancel);
    EXPECT_EQ(Shown(window, results), before);
    answer(QDialogButtonBox::Ok);
    EXPECT_EQ(Shown(window, results), fitted);
    ChooseItem(window, "EditUndo");
    EXPECT_EQ(Shown(window, results), before) << "one step";
}

}  // namespace
}  // namespace linealis::test
