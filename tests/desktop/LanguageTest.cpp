#include "DesktopTestSupport.h"
#include "desktop/dialogs/PrintPage.h"
#include "desktop/system/WindowLanguage.h"
#include "desktop/window/PaperSearch.h"
#include "exchange/Devices.h"

#include <QAccessible>
#include <QListWidget>
#include <QPrinter>
#include <QTranslator>
#include <algorithm>
#include <set>
#include <span>

namespace linealis::test {
namespace {

/// A language that shows what is not translated: it puts brackets around every text of the program.
class Bracketed final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* /*context*/, const char* english, const char* /*comment*/,
                      int /*count*/) const override
    {
        return QStringLiteral("[%1]").arg(QString::fromUtf8(english));
    }
};

class Languages : public DesktopTest {
protected:
    void TearDown() override
    {
        desktop::ChooseLanguage(QStringLiteral("en"));
        desktop::InstallLanguage();
        DesktopTest::TearDown();
    }

    void Speak(const QString& code)
    {
        End();
        desktop::ChooseLanguage(code);
        desktop::InstallLanguage();
        Start();
    }
};

/// Whether the text is made of words, not of a name, a unit, a number, or what the user has entered.
bool HasWords(QString text)
{
    static const QRegularExpression noWords(
        QStringLiteral("Linealis|Untitled|#[0-9A-F]{6} "
                       "\\(\\w+\\)|PDF|SVG|PNG|DXF|[A-Za-z]:|https?:\\S*|\\b\\p{L}{1,2}\\b"),
        QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression word(QStringLiteral("[A-Za-z]{3}"));
    const std::span<const Device> devices = Devices();
    const auto isNamed = [&](const Device& device) { return text == ToQt(device.title); };
    if (std::any_of(devices.begin(), devices.end(), isNamed)) {
        return false;
    }
    return text.remove(noWords).contains(word);
}

/// Returns what a screen reader says about an element and the elements in it.
QStringList SpokenTexts(QAccessibleInterface& element)
{
    QStringList texts;
    for (const QAccessible::Text text : {QAccessible::Name, QAccessible::Description, QAccessible::Help}) {
        texts << element.text(text);
    }
    for (int i = 0; i < element.childCount(); ++i) {
        QAccessibleInterface* const child = element.child(i);
        const bool isSpoken = child != nullptr && child->role() != QAccessible::Separator;
        if (isSpoken &&
            (child->object() == nullptr || child->object()->objectName() != QLatin1String("Language"))) {
            texts << SpokenTexts(*child);
        }
    }
    return texts;
}

/// Returns everything that a window says, except what the user has entered.
QStringList TextsOf(QWidget& window)
{
    QStringList texts = {window.windowTitle()};
    texts << SpokenTexts(*QAccessible::queryAccessibleInterface(&window));
    texts.removeAll(QStringLiteral("separator"));  // marks a line in a list; Qt finds the line by this word
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        texts << widget->toolTip();
        if (widget->objectName() == QLatin1String("Language")) {
            continue;  // each in its own language
        }
        if (const auto* const box = qobject_cast<const QComboBox*>(widget)) {
            for (int i = 0; i < box->count(); ++i) {
                texts << box->itemText(i);
            }
        } else if (qobject_cast<const QLineEdit*>(widget) == nullptr) {
            texts << widget->property("text").toString();
        }
    }
    for (const QAction* const action : window.findChildren<QAction*>()) {
        texts << action->text() << action->toolTip();
    }
    return texts;
}

TEST_F(Languages, NoTextIsLeftInEnglish)
{
    Bracketed bracketed;
    QCoreApplication::installTranslator(&bracketed);
    End();
    Start();
    std::set<QString> left;
    const auto look = [&](QWidget& window) {
        for (const QString& text : TextsOf(window)) {
            if (HasWords(text) && !text.contains(QLatin1Char('['))) {
                left.insert(text);
            }
        }
    };
    look(Window("gallery"));
    for (const PaperKind& kind : PaperKinds()) {
        QWidget& window = OpenPaper(kind.name);
        Fill(Child<QLineEdit>(window, "EditTopMargin"), "abc");
        QTest::qWait(50);
        look(window);
        if (kind.name == "graph") {
            for (const char* const item :
                 {"FilePrintPad", "EditDataRange", "EditPreferences", "FileExport", "HelpCalibration"}) {
                person.Answers<QDialog>([&](QDialog& dialog) {
                    look(dialog);
                    Press(dialog, Qt::Key_Escape);
                });
                ChooseItem(window, item);
            }
            Press(window, Qt::Key_F9, Qt::ShiftModifier);
            look(Window("PageWindow"));
        }
    }
    QCoreApplication::removeTranslator(&bracketed);
    for (const QString& text : left) {
        ADD_FAILURE() << text.toStdString();
    }
}

/// Returns the access keys of the actions or buttons that occur more than once.
template <typename Item>
QStringList RepeatedKeys(const QList<Item*>& items)
{
    std::set<QString> found;
    QStringList repeated;
    for (const Item* const item : items) {
        const QKeySequence key = QKeySequence::mnemonic(item->text());
        if (!key.isEmpty() && !found.insert(key.toString()).second) {
            repeated << item->text();
        }
    }
    return repeated;
}

/// Returns the texts of the buttons and captions of a dialog that have no access key, or one that is taken.
QStringList WithoutOwnKey(const QDialog& dialog)
{
    std::set<QString> taken;
    QStringList without;
    for (const QWidget* const widget : dialog.findChildren<QWidget*>()) {
        const auto* const label = qobject_cast<const QLabel*>(widget);
        if (qobject_cast<const QAbstractButton*>(widget) || (label != nullptr && label->buddy() != nullptr)) {
            const QString text = widget->property("text").toString();
            const QKeySequence key = QKeySequence::mnemonic(text);
            if (key.isEmpty() || !taken.insert(key.toString()).second) {
                without << text;
            }
        }
    }
    return without;
}

TEST_F(Languages, AccessKeysDifferInEveryMenu)
{
    for (const desktop::WindowLanguage& language : desktop::WindowLanguages()) {
        SCOPED_TRACE(language.code.toStdString());
        Speak(language.code.isEmpty() ? QStringLiteral("en") : language.code);
        QWidget& window = OpenPaper("graph");
        EXPECT_EQ(RepeatedKeys(Child<QMenuBar>(window, "").actions()), QStringList());
        for (const QMenu* const menu : window.findChildren<QMenu*>()) {
            EXPECT_EQ(RepeatedKeys(menu->actions()), QStringList()) << menu->title().toStdString();
        }
        EXPECT_EQ(RepeatedKeys(window.findChildren<QPushButton*>()), QStringList());
        person.Answers<QDialog>([](QDialog& dialog) {
            EXPECT_EQ(WithoutOwnKey(dialog), QStringList());
            Press(dialog, Qt::Key_Escape);
        });
        ChooseItem(window, "FilePrintPad");
    }
}

TEST_F(Languages, WriteNumbersWithTheirDecimalMark)
{
    Speak(QStringLiteral("de"));
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    desktop::SetPaper(printer, QSizeF(300, 400));
    const QString text = desktop::PrintedText(printer, {1.005, 0.995});
    EXPECT_TRUE(text.contains(QStringLiteral("105,8 × 141,1 mm"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("1,005"))) << text.toStdString();
}

TEST(Language, IsTheFirstOfTheSystemThatIsEnglishOrTranslated)
{
    const auto chosen = [](const QStringList& wanted) { return desktop::LanguageFor(wanted).toStdString(); };
    EXPECT_EQ(chosen({"de-AT", "en"}), "de");
    EXPECT_EQ(chosen({"en-GB", "de"}), "en") << "German is only their second choice";
    EXPECT_EQ(chosen({"sv", "pt-PT", "fr"}), "pt_BR");
    EXPECT_EQ(chosen({"sv"}), "en");
    EXPECT_EQ(chosen({"C"}), "en");
}

TEST_F(Languages, ChangeAtOnceAndKeepTheForm)
{
    Speak(QStringLiteral("en"));
    QWidget& window = OpenPaper("grid");
    Fill(Child<QLineEdit>(window, "EditTopMargin"), "2");
    Press(window, Qt::Key_Tab);
    const auto choose = [this](const char* code) {
        person.Answers<QDialog>([code](QDialog& dialog) {
            auto& languages = Child<QComboBox>(dialog, "Language");
            languages.setCurrentIndex(languages.findData(QString::fromLatin1(code)));
            Press(dialog, Qt::Key_Return);
        });
        ChooseItem(Window("grid"), "EditPreferences");
        QTest::qWait(100);
    };
    choose("de");
    QWidget& german = Window("grid");
    EXPECT_EQ(german.windowTitle(), QStringLiteral("Kariertes Papier"));
    EXPECT_EQ(Shown(german, "EditTopMargin"), "2");
    EXPECT_EQ(FindPapers("kariertes", FolderItem(), true, desktop::LanguageOfWindows()).at(0).kind->name, "grid");
    Press(german, Qt::Key_F1);
    QTest::qWait(100);
    EXPECT_EQ(Child<QListWidget>(Window("manual"), "ManualChapters").currentItem()->text().trimmed(),
              QStringLiteral("Kariert"));
    Window("manual").close();
    ChooseItem(german, "EditUndo");
    EXPECT_EQ(Shown(german, "EditTopMargin"), "0.5");
    choose("en");
    EXPECT_EQ(Window("grid").windowTitle(), QStringLiteral("Grid Graph Paper"));
}

}  // namespace
}  // namespace linealis::test
