#include "DesktopTestSupport.h"
#include "desktop/dialogs/PadDialog.h"
#include "desktop/form/ElidedLabel.h"
#include "desktop/form/FormView.h"
#include "desktop/form/QuickHands.h"
#include "desktop/system/WindowLanguage.h"
#include "desktop/window/PaperBars.h"

#include <QListWidget>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QToolButton>
#include <QTranslator>

// Everything is readable without scrolling to the side, on a small screen and with a larger font.

namespace linealis::test {
namespace {

/// A language whose texts are longer by two fifths and have marks above and below their letters.
class LongTexts final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* /*context*/, const char* english, const char* /*comment*/,
                      int /*count*/) const override
    {
        QString text = QString::fromUtf8(english);
        const qsizetype more = text.size() * 2 / 5;
        text.replace(QLatin1Char('e'), QStringLiteral("é")).replace(QLatin1Char('A'), QStringLiteral("Å"));
        return text.size() < 3 ? text : text + QString(more, QChar(0x00e7));
    }
};

class WindowFit : public DesktopTest {
protected:
    void SetUp() override
    {
        DesktopTest::SetUp();
        usual = QApplication::font();
    }
    void TearDown() override
    {
        QApplication::setFont(usual);
        QApplication::setLayoutDirection(Qt::LeftToRight);
        desktop::ChooseLanguage(QStringLiteral("en"));
        desktop::InstallLanguage();
        DesktopTest::TearDown();
    }

    /// Returns the size that the widget needs for its text.
    static QSize Needed(const QWidget& widget)
    {
        const int text = widget.fontMetrics().horizontalAdvance(widget.property("text").toString());
        if (const auto* const edit = qobject_cast<const QLineEdit*>(&widget)) {
            constexpr int frame = 8;
            const int hint = edit->fontMetrics().horizontalAdvance(edit->placeholderText());
            const int shown = edit->text().isEmpty() ? hint : text;
            return {shown + frame + edit->textMargins().right(), edit->fontMetrics().height()};
        }
        if (const auto* const box = qobject_cast<const QComboBox*>(&widget)) {
            QStyleOptionComboBox option;
            option.initFrom(box);
            const int around =
                box->width() - box->style()
                                   ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box)
                                   .width();
            return {box->fontMetrics().horizontalAdvance(box->currentText()) + around, 0};
        }
        const bool isElided = qobject_cast<const desktop::ElidedLabel*>(&widget) != nullptr ||
                              qobject_cast<const desktop::StatusLine*>(&widget) != nullptr;
        const auto* const label = qobject_cast<const QLabel*>(&widget);
        if (isElided || (label != nullptr && label->wordWrap())) {
            return {0, widget.fontMetrics().height()};
        }
        const bool hasText = label != nullptr || qobject_cast<const QAbstractButton*>(&widget) != nullptr;
        return hasText ? widget.minimumSizeHint().boundedTo(widget.sizeHint()) : QSize();
    }

    /// A list of tiles must show each text whole, in at most two lines; any other list must be wide enough.
    static void ExpectListReadable(const QListWidget& list)
    {
        if (list.viewMode() == QListView::ListMode) {
            EXPECT_GE(list.viewport()->width(), list.sizeHintForColumn(0)) << list.objectName().toStdString();
            return;
        }
        constexpr int around = 8;  // pixels, both sides of a title together
        for (int row = 0; row < list.count(); ++row) {
            const QString text = list.item(row)->text();
            const auto fits = [&,
                               width = list.visualItemRect(list.item(row)).width() - around](const QString& line) {
                return list.fontMetrics().horizontalAdvance(line) <= width;
            };
            bool isWhole = fits(text);
            for (qsizetype blank = text.indexOf(QLatin1Char(' ')); blank > 0 && !isWhole;
                 blank = text.indexOf(QLatin1Char(' '), blank + 1)) {
                isWhole = fits(text.left(blank)) && fits(text.mid(blank + 1));
            }
            EXPECT_TRUE(isWhole) << text.toStdString();
        }
    }

    static void ExpectReadable(const QWidget& window, const std::string& name)
    {
        SCOPED_TRACE(name);
        const QSize room = window.screen()->availableSize();
        EXPECT_LE(window.width(), room.width());
        EXPECT_LE(window.height(), room.height());
        for (const QWidget* const widget : window.findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->window() != &window) {
                continue;
            }
            const std::string what =
                widget->objectName().toStdString() + " " + widget->property("text").toString().toStdString();
            EXPECT_GE(widget->width(), Needed(*widget).width()) << what;
            EXPECT_GE(widget->height(), Needed(*widget).height()) << what;
            if (const auto* const area = qobject_cast<const QScrollArea*>(widget)) {
                EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << what;
            }
            if (widget->objectName().startsWith(QLatin1String("PresetPicker")) &&
                qobject_cast<const QListWidget*>(widget)) {
                ExpectListReadable(static_cast<const QListWidget&>(*widget));
            }
        }
    }

    void ExpectDialogReadable(QWidget& window, const char* item, const std::string& name)
    {
        person.Answers<QDialog>([&name](QDialog& dialog) {
            QTest::qWait(50);
            ExpectReadable(dialog, name);
            Press(dialog, Qt::Key_Escape);
        });
        Item(window, item).trigger();
    }

    QFont usual;
};

TEST_F(WindowFit, AFormKnowsItsSizeBeforeItIsShown)
{
    ScreenlessPlatform platform;
    const auto window = MakeWindow(*FindPaperKind("cornell"), platform);
    auto* const form = new desktop::FormView(window->form, desktop::GroupBoxes::withHeading, [](Swatch&) {});
    desktop::FormScrollArea area(form);
    EXPECT_GT(area.sizeHint().width(), 0);
    desktop::AddQuickHands(window->form, *form, {});
    const QSize before = area.sizeHint();
    area.show();
    QTest::qWait(50);
    EXPECT_EQ(before, area.sizeHint());
}

TEST_F(WindowFit, EveryTextIsReadableOnASmallScreen)
{
    for (const auto& [points, language] :
         {std::pair(usual.pointSizeF(), "en"), std::pair(13.0, "en"), std::pair(usual.pointSizeF(), "de"),
          std::pair(usual.pointSizeF(), "fr"), std::pair(usual.pointSizeF(), "ja"),
          std::pair(usual.pointSizeF(), "long")}) {
        QFont font = usual;
        font.setPointSizeF(points);
        QApplication::setFont(font);
        desktop::WindowSettings().clear();
        desktop::ChooseLanguage(QString::fromLatin1(language));
        desktop::InstallLanguage();
        LongTexts longTexts;  // until the next language
        if (std::string_view(language) == "long") {
            QCoreApplication::installTranslator(&longTexts);
        }
        End();
        Start();
        const std::string at = " at " + std::to_string(points) + " points, " + language;
        ExpectReadable(Window("gallery"), "gallery" + at);
        for (const PaperKind& kind : PaperKinds()) {
            QWidget& window = OpenPaper(kind.name);
            QTest::qWait(20);
            ExpectReadable(window, std::string(kind.name) + at);
            auto& tabs = Child<QTabBar>(window, "FormAndPageTabs");
            if (tabs.isVisible()) {
                EXPECT_TRUE(kind.name == "graph" || std::string_view(language) != "en")
                    << "the others have room beside";
                tabs.setCurrentIndex(1);
                QTest::qWait(20);
                ExpectReadable(window, "page of " + std::string(kind.name) + at);
            }
            EXPECT_TRUE(Child(window, "LivePage").isVisible()) << kind.name;
            if (kind.name == "graph") {
                ExpectDialogReadable(window, "FilePrintPad", "pad" + at);
                ExpectDialogReadable(window, "EditDataRange", "range" + at);
                ExpectDialogReadable(window, "EditPreferences", "preferences" + at);
                ExpectDialogReadable(window, "PresetChoose", "picker" + at);
            }
            window.close();
            QCoreApplication::processEvents();
        }
    }
}

TEST_F(WindowFit, AMirroredWindowKeepsPagesAsTheyAre)
{
    End();
    desktop::WindowSettings().clear();
    QApplication::setLayoutDirection(Qt::RightToLeft);
    Start();
    const auto edges = [](const QWidget& window, const char* name) {
        const QWidget& part = Child(window, name);
        return QRect(part.mapTo(&window, QPoint()), part.size());
    };
    const QWidget& gallery = Window("gallery");
    EXPECT_FALSE(edges(gallery, "PushButton1").intersects(edges(gallery, "GalleryResults")));
    for (const PaperKind& kind : PaperKinds()) {
        QWidget& window = OpenPaper(kind.name);
        QTest::qWait(20);
        ExpectReadable(window, "mirrored " + std::string(kind.name));
        if (!Child<QTabBar>(window, "FormAndPageTabs").isVisible()) {
            EXPECT_GT(edges(window, "EditTopMargin").left(), edges(window, "LivePage").right());
        }
        EXPECT_LT(edges(window, "RulerDown").left(), edges(window, "LivePage").left());
        window.close();
        QCoreApplication::processEvents();
    }
}

}  // namespace
}  // namespace linealis::test
