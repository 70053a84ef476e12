// Shows every window of the program and saves a picture of each: for the manual, the README and whoever wants to
// see them. The size of the screen and QT_SCALE_FACTOR hold as for the program itself.

#include "desktop/system/Text.h"
#include "desktop/system/WindowLanguage.h"
#include "desktop/system/WindowSettings.h"
#include "desktop/window/Desktop.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QPalette>
#include <QSpinBox>
#include <QStandardPaths>
#include <QStyle>
#include <QTextStream>
#include <QTimer>
#include <QToolButton>
#include <QTranslator>
#include <functional>
#include <utility>

namespace {

using namespace linealis;
using namespace linealis::desktop;

void Settle(int milliseconds = 700)
{
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < milliseconds) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
}

class Camera {
public:
    explicit Camera(QString theFolder) : folder(std::move(theFolder)) { QDir().mkpath(folder); }

    void Take(QWidget& window, const QString& name)
    {
        Settle();
        const QString file = folder + QStringLiteral("/window-") + name + QStringLiteral(".png");
        if (!window.grab().save(file)) {
            qFatal("%s could not be written", qPrintable(file));
        }
        QTextStream(stdout) << file << "  " << window.width() << " x " << window.height() << '\n';
    }

private:
    QString folder;
};

QWidget& WindowNamed(const QString& name)
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name) {
            return *window;
        }
    }
    qFatal("there is no window %s", qPrintable(name));
}

template <typename Widget>
Widget& Named(QWidget& window, const char* name)
{
    auto* const found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (found == nullptr) {
        qFatal("there is no %s", name);
    }
    return *found;
}

/// Opens a dialog, also one that comes later, fills it in, saves its picture and closes it.
void TakeDialog(Camera& camera, const QString& name, const std::function<void()>& open,
                const std::function<void(QDialog& dialog)>& fillIn = {})
{
    constexpr int betweenLooks = 200, untilPictures = 1500;  // milliseconds
    bool isTaken = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        auto* const dialog = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) {
            return;
        }
        timer.stop();
        if (fillIn) {
            fillIn(*dialog);
        }
        Settle(untilPictures);
        camera.Take(*dialog, name);
        dialog->reject();
        isTaken = true;
    });
    timer.start(betweenLooks);
    open();
    while (!isTaken) {
        Settle(betweenLooks);
    }
}

/// Takes the dialog for pads with everything that it makes. Nothing is stored between the pictures.
void TakePads(Camera& camera, const std::function<void()>& open)
{
    TakeDialog(camera, QStringLiteral("pad"), open, [](QDialog& dialog) {
        Named<QComboBox>(dialog, "PadUp").setCurrentIndex(1);
        Named<QCheckBox>(dialog, "PadNumbers").setChecked(true);
        auto& backs = Named<QComboBox>(dialog, "PadBack");
        backs.setCurrentIndex(backs.findData(QStringLiteral("lined")));
    });
    TakeDialog(camera, QStringLiteral("booklet"), open, [](QDialog& dialog) {
        Named<QComboBox>(dialog, "PadMake").setCurrentIndex(1);
        Named<QSpinBox>(dialog, "PadPages").setValue(16);
        Named<QCheckBox>(dialog, "PadDates").setChecked(true);
    });
    TakeDialog(camera, QStringLiteral("poster"), open,
               [](QDialog& dialog) { Named<QComboBox>(dialog, "PadMake").setCurrentIndex(2); });
}

void TakeDialogsOfGraph(Camera& camera, QWidget& window)
{
    const auto choosing = [&](const char* item) {
        return [&window, item] { Named<QAction>(window, item).trigger(); };
    };
    TakeDialog(camera, QStringLiteral("wizard"),
               [&] { Named<QAbstractButton>(window, "PushButtonEasyWizard").click(); });
    TakeDialog(camera, QStringLiteral("range"), choosing("EditDataRange"), [](QDialog& dialog) {
        for (const auto& [field, text] : {std::pair("EditMinX", "0"), std::pair("EditMaxX", "250"),
                                          std::pair("EditMinY", "2"), std::pair("EditMaxY", "1000")}) {
            Named<QLineEdit>(dialog, field).setText(QString::fromLatin1(text));
        }
        Named<QCheckBox>(dialog, "CheckLogY").setChecked(true);
    });
    TakePads(camera, choosing("FilePrintPad"));
    TakeDialog(camera, QStringLiteral("picker"), [&] { Named<QToolButton>(window, "ToolPresets").click(); });
    TakeDialog(camera, QStringLiteral("preferences"), choosing("EditPreferences"));
    TakeDialog(camera, QStringLiteral("print"), choosing("FilePrint"));
}

/// Fills in the form with every sort of remark, and opens the list of things to check.
void TakeRemarks(Camera& camera, QWidget& shown, PaperWindow& window)
{
    window.form.Get<TextField>("EditHorzSpacing").SetText("abc");
    window.form.Get<TextField>("EditBlankTop").SetText("2.9");
    window.form.Get<TextField>("EditBlankLeft").SetText("-1");
    camera.Take(shown, QStringLiteral("remarks"));
    QMenu& checks = *Named<QToolButton>(shown, "CheckButton").menu();
    checks.popup(shown.mapToGlobal(QPoint()));
    camera.Take(checks, QStringLiteral("checks"));
    checks.close();
}

/// A language that reads from right to left: it puts brackets around every text and replaces its letters by Arabic
/// ones.
class Mirrored final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* /*context*/, const char* english, const char* /*comment*/,
                      int /*count*/) const override
    {
        static const QString letters = QStringLiteral("ابثدهفغحيجكلمنوپقرستعڤصخىز");  // for a to z
        QString text = QString::fromUtf8(english);
        for (QChar& c : text) {
            const int place = c.toLower().unicode() - 'a';
            c = place >= 0 && place < letters.size() ? letters.at(place) : c;
        }
        return QLatin1Char('[') + text + QLatin1Char(']');
    }
};

void UseDarkPalette()
{
    QApplication::setStyle(QStringLiteral("Fusion"));
    QPalette dark(QColor(53, 53, 53), QColor(43, 43, 43));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::ToolTipBase, QColor(53, 53, 53));
    dark.setColor(QPalette::Highlight, QColor(61, 132, 219));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        dark.setColor(QPalette::Disabled, role, QColor(127, 127, 127));
    }
    QApplication::setPalette(dark);
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);  // keeps the user's own preferences out of it
    QCommandLineParser parser;
    const QCommandLineOption font(QStringLiteral("font"), {}, QStringLiteral("points"));
    const QCommandLineOption dark(QStringLiteral("dark"));
    const QCommandLineOption language(QStringLiteral("language"), {}, QStringLiteral("code"), QStringLiteral("en"));
    const QCommandLineOption mirrored(QStringLiteral("mirrored"));
    parser.addOptions({font, dark, language, mirrored});
    if (!parser.parse(QApplication::arguments()) || parser.positionalArguments().size() != 1) {
        QTextStream(stderr)
            << "usage: linealis_screenshots [--font POINTS] [--dark] [--language CODE] [--mirrored] FOLDER\n";
        return 2;
    }
    if (parser.isSet(dark)) {
        UseDarkPalette();
    }
    if (parser.isSet(font)) {
        QFont chosen = QApplication::font();
        chosen.setPointSizeF(parser.value(font).toDouble());
        QApplication::setFont(chosen);
    }
    WindowSettings().clear();  // of an earlier run
    ChooseLanguage(parser.value(language));
    InstallLanguage();
    Mirrored rightToLeft;
    if (parser.isSet(mirrored)) {
        QCoreApplication::installTranslator(&rightToLeft);
        QApplication::setLayoutDirection(Qt::RightToLeft);
    }
    Camera camera(parser.positionalArguments().constFirst());
    Desktop desktop;
    desktop.Open();
    camera.Take(WindowNamed(QStringLiteral("gallery")), QStringLiteral("gallery"));
    for (const PaperKind& kind : PaperKinds()) {
        PaperWindow& window = desktop.Application().ShowPaper(kind);
        QWidget& shown = WindowNamed(ToQt(kind.window));
        camera.Take(shown, ToQt(kind.name));
        if (kind.name == "graph") {
            TakeDialogsOfGraph(camera, shown);
        }
        if (kind.name == "lined") {
            TakeRemarks(camera, shown, window);
        }
    }
    return 0;
}
