#pragma once

// Clicks go to whatever window takes them, as on a screen: never past a dialog.
#define QTEST_QPA_MOUSE_HANDLING

#include "TestSupport.h"
#include "app/Preferences.h"
#include "desktop/system/Text.h"
#include "desktop/system/WindowSettings.h"
#include "desktop/window/Desktop.h"

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <deque>
#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>

namespace linealis::test {

using desktop::ToQt;

template <typename Widget = QWidget>
Widget& Child(const QObject& parent, std::string_view name)
{
    auto* const child = parent.findChild<Widget*>(ToQt(name));
    if (child == nullptr) {
        throw std::runtime_error("no such control: " + std::string(name));
    }
    return *child;
}

/// Scrolls to the widget first, where that is needed.
inline void Click(QWidget& widget, Qt::KeyboardModifiers keys = {}, QPoint place = {})
{
    for (QWidget* parent = widget.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (auto* const area = qobject_cast<QScrollArea*>(parent)) {
            area->ensureWidgetVisible(&widget);
        }
    }
    QTest::mouseClick(&widget, Qt::LeftButton, keys, place);
}

/// The window that a key goes to, sent to the given one. An open popup or menu takes it, which on a screen grabs
/// the keyboard; and there a window is in front again after its dialog has gone.
inline QWindow* TakeKeyboard(QWidget& widget)
{
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        return popup->windowHandle();
    }
    QWidget* const window = widget.window();
    if (!window->isActiveWindow()) {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }
    return window->windowHandle();
}

/// A key for whatever has the focus in the window.
inline void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers keys = {})
{
    QTest::keyClick(TakeKeyboard(window), key, keys);
}

inline void Write(QWidget& window, std::string_view text)
{
    for (const char c : text) {
        QTest::keyClick(TakeKeyboard(window), c);
    }
}

inline void Fill(QLineEdit& field, std::string_view text)
{
    Click(field);
    Press(field, Qt::Key_A, Qt::ControlModifier);
    Press(field, Qt::Key_Backspace);
    Write(field, text);
}

inline void Choose(QComboBox& box, std::string_view item)
{
    const int index = box.findText(ToQt(item));
    ASSERT_GE(index, 0) << item;
    Click(box);
    Press(box, Qt::Key_Home);
    for (int i = 0; i < index; ++i) {
        Press(box, Qt::Key_Down);
    }
    Press(box, Qt::Key_Return);
}

/// On the box itself: a caption may be narrower than the widget.
inline void ClickBox(QAbstractButton& button)
{
    Click(button, {}, {8, button.height() / 2});
}

/// What a field, popup or label shows.
inline std::string Shown(const QWidget& window, std::string_view name)
{
    const QWidget& widget = Child(window, name);
    if (const auto* const box = qobject_cast<const QComboBox*>(&widget)) {
        return box->currentText().toStdString();
    }
    return widget.property("text").toString().toStdString();
}

inline std::string Shown(const QWidget& window, std::initializer_list<std::string_view> names)
{
    std::string all;
    for (const std::string_view name : names) {
        all += (all.empty() ? "" : " ") + Shown(window, name);
    }
    return all;
}

inline QAction& Item(QWidget& window, std::string_view name)
{
    return Child<QAction>(window, name);
}

inline QMenu& PullDown(QWidget& window, const QAction& item)
{
    auto& menu = dynamic_cast<QMenu&>(*item.parent());
    auto& bar = *window.findChild<QMenuBar*>();
    Click(bar, {}, bar.actionGeometry(menu.menuAction()).center());
    EXPECT_TRUE(menu.isVisible());
    return menu;
}

inline void ChooseItem(QWidget& window, std::string_view name)
{
    QAction& item = Item(window, name);
    QMenu& menu = PullDown(window, item);
    EXPECT_TRUE(item.isEnabled()) << name;
    Click(menu, {}, menu.actionGeometry(&item).center());
}

inline bool CanChoose(QWidget& window, std::string_view name)
{
    QAction& item = Item(window, name);
    QMenu& menu = PullDown(window, item);
    const bool can = item.isEnabled();
    Press(menu, Qt::Key_Escape);
    return can;
}

/// Sits before the screen while the program waits in a dialog or works on a page, and does what was agreed
/// beforehand. A dialog that nobody expects is a failure.
class Person final : public QObject {
public:
    Person() { Look(); }

    template <typename Dialog>
    void Answers(std::function<void(Dialog& dialog)> how)
    {
        answers.push_back([how](QWidget& shown) {
            auto* const dialog = qobject_cast<Dialog*>(&shown);
            EXPECT_NE(dialog, nullptr) << shown.metaObject()->className();
            dialog == nullptr ? static_cast<void>(shown.close()) : how(*dialog);
        });
    }

    void ReadsMessage(const std::string& text)
    {
        Answers<QMessageBox>([text](QMessageBox& box) {
            EXPECT_EQ(box.text().toStdString(), text);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            ASSERT_EQ(box.buttons().size(), 1);
            Click(*box.buttons().first());
        });
    }

    /// Names a file of the type, with the suggestion "Untitled" or the like for a new one.
    void NamesFile(const fs::path& path, std::string_view extension, const std::string& suggestion)
    {
        Answers<QFileDialog>([=, pattern = "*." + std::string(extension)](QFileDialog& dialog) {
            EXPECT_NE(dialog.selectedNameFilter().indexOf(ToQt(pattern)), -1) << pattern;
            const bool alsoPictures = dialog.acceptMode() == QFileDialog::AcceptOpen;
            EXPECT_EQ(dialog.nameFilters().size(), alsoPictures ? 2 : 1);
            auto& field = Child<QLineEdit>(dialog, "fileNameEdit");
            EXPECT_EQ(field.text().toStdString().substr(0, suggestion.size()), suggestion);
            EXPECT_EQ(field.text().isEmpty(), suggestion.empty());
            field.setText(ToQt(path.string()));
            Click(*dialog.findChild<QDialogButtonBox*>()->buttons().first());
        });
    }
    void NamesPage(const fs::path& path, const std::string& suggestion = "Untitled")
    {
        NamesFile(path, "pdf", suggestion + ".pdf");
    }

    void CancelsFile()
    {
        Answers<QFileDialog>([](QFileDialog& dialog) { Press(dialog, Qt::Key_Escape); });
    }

    void ChoosesColor(const QColor& color, bool accepts)
    {
        Answers<QColorDialog>([=](QColorDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Select a Color"));
            dialog.setCurrentColor(color);
            Click(*dialog.findChild<QDialogButtonBox*>()->button(accepts ? QDialogButtonBox::Ok
                                                                         : QDialogButtonBox::Cancel));
        });
    }

    /// Acts as soon as that is possible, in the midst of what the program does.
    void ActsWhen(std::function<bool()> possible, std::function<void()> act)
    {
        plans.emplace_back(std::move(possible), std::move(act));
    }

    bool IsDone() const { return answers.empty() && plans.empty(); }

private:
    void Look()
    {
        QTimer::singleShot(5, this, &Person::Look);  // before acting: one dialog may bring up the next
        if (!plans.empty() && plans.front().first()) {
            const auto act = plans.front().second;
            plans.pop_front();
            act();
            return;
        }
        QWidget* const dialog = QApplication::activeModalWidget();
        seen.removeIf([](const QPointer<QWidget>& earlier) { return earlier == nullptr || !earlier->isVisible(); });
        if (dialog == nullptr || !dialog->isVisible() || seen.contains(dialog)) {
            return;
        }
        seen << dialog;
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected: " << dialog->windowTitle().toStdString() << " "
                          << dialog->property("text").toString().toStdString();
            dialog->close();
            return;
        }
        const auto answer = answers.front();
        answers.pop_front();
        answer(*dialog);
    }

    std::deque<std::function<void(QWidget&)>> answers;
    std::deque<std::pair<std::function<bool()>, std::function<void()>>> plans;
    QList<QPointer<QWidget>> seen;  ///< and still there, perhaps below another dialog
};

/// Stands in for the system's viewer and browser, which must not come up here.
class Viewer final : public QObject {
    Q_OBJECT

public:
    Viewer()
    {
        for (const char* const scheme : {"file", "http", "https"}) {
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "View");
        }
    }
    ~Viewer() override
    {
        for (const char* const scheme : {"file", "http", "https"}) {
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
        }
    }
    Viewer(const Viewer&) = delete;
    Viewer& operator=(const Viewer&) = delete;

    Names shown;

public slots:
    void View(const QUrl& url)
    {
        shown.push_back((url.isLocalFile() ? url.toLocalFile() : url.toString()).toStdString());
    }
};

/// The whole program but for its main function, with preferences of its own and no version check.
class DesktopTest : public testing::Test {
protected:
    void SetUp() override
    {
        fs::remove_all(desktop::DesktopPlatform().PreferencesFolder().Path());
        WriteNoUpdateCheck(true);
        // The windows open without their page, so that only the tests of the page wait for it.
        for (const PaperKind& kind : PaperKinds()) {
            desktop::WindowSettings().setValue("windows/" + ToQt(kind.window) + "/livePage", false);
        }
        Start();
    }
    void TearDown() override
    {
        // The program may have finished faster than the person looks.
        EXPECT_TRUE(QTest::qWaitFor([this] { return person.IsDone(); }));
    }

    void Start()
    {
        program = std::make_unique<desktop::Desktop>();
        program->Open();
    }
    void End() { program.reset(); }

    /// The program's main loop. Its end must have been arranged.
    static int Run() { return QApplication::exec(); }

    /// The window of a kind, or another by its name.
    static QWidget* FindWindow(std::string_view name)
    {
        const PaperKind* const kind = FindPaperKind(name);
        const QString wanted = ToQt(kind == nullptr ? name : kind->window);
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->objectName() == wanted && window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }
    /// Brings the window to the front.
    static QWidget& Window(std::string_view name)
    {
        QWidget* const window = FindWindow(name);
        if (window == nullptr) {
            throw std::runtime_error("no such window: " + std::string(name));
        }
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        return *window;
    }
    static QWidget& OpenPaper(std::string_view kind)
    {
        Click(Child(Window("gallery"), FindPaperKind(kind)->picture));
        return Window(kind);
    }

    /// Each CONTROL=VALUE as a person enters it.
    void Enter(QWidget& window, const Names& assignments)
    {
        for (const std::string& assignment : assignments) {
            const std::size_t equals = assignment.find('=');
            EnterValue(Child(window, assignment.substr(0, equals)), assignment.substr(equals + 1));
        }
    }

    /// Makes the window's page as that file, without a look at it. The title of the page is suggested as its name.
    void GenerateAs(QWidget& window, const fs::path& path)
    {
        Enter(window, {"CheckBoxViewGraph=off"});
        const auto* const title = window.findChild<QLineEdit*>(QStringLiteral("EditTitle"));
        const bool hasTitle =
            title != nullptr && !title->text().isEmpty() && !title->text().contains(QStringLiteral("Sample"));
        person.NamesPage(path, hasTitle ? title->text().toStdString() : "Untitled");
        Click(Child(window, "PushButtonGenerate"));
    }

    static void WriteNoUpdateCheck(bool noUpdateCheck)
    {
        desktop::DesktopPlatform platform;
        WritePrefs({noUpdateCheck, 0}, PreferencesFile("LinealisPrefs"), platform);
    }
    static FolderItem PreferencesFile(const std::string& name)
    {
        return desktop::DesktopPlatform().PreferencesFolder().Child(name);
    }

    TemporaryFolder folder;
    Person person;
    Viewer viewer;
    std::unique_ptr<desktop::Desktop> program;

private:
    void EnterValue(QWidget& widget, const std::string& value)
    {
        ASSERT_TRUE(widget.isEnabled()) << widget.objectName().toStdString();
        if (auto* const field = qobject_cast<QLineEdit*>(&widget)) {
            Fill(*field, value);
        } else if (auto* const popup = qobject_cast<QComboBox*>(&widget)) {
            Choose(*popup, value);
        } else if (auto* const box = qobject_cast<QCheckBox*>(&widget)) {
            if (box->isChecked() != (value == "on")) {
                ClickBox(*box);
            }
        } else if (auto* const swatch = qobject_cast<QAbstractButton*>(&widget)) {
            person.ChoosesColor(QColor(ToQt(value)), true);
            Click(*swatch);
        } else {
            for (QRadioButton* const button : widget.findChildren<QRadioButton*>()) {
                if (button->text() == ToQt(value)) {
                    ClickBox(*button);
                }
            }
        }
    }
};

}  // namespace linealis::test
