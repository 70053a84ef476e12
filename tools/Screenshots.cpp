// Shows every window of the program and saves a picture of each: for the manual, the README and whoever wants to
// see them.

#include "desktop/dialogs/FormDialog.h"
#include "desktop/system/Text.h"
#include "desktop/window/Desktop.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QTextStream>

namespace {

using namespace linealis;
using namespace linealis::desktop;

void Settle()
{
    constexpr int milliseconds = 150;
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

void ShowDialog(Camera& camera, const QString& title, const QString& name, Form& form)
{
    FormDialog dialog(title, form, nullptr);
    dialog.show();
    camera.Take(dialog, name);
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);  // keeps the user's own preferences out of it
    if (argc != 2) {
        QTextStream(stderr) << "usage: linealis_screenshots FOLDER\n";
        return 2;
    }
    Camera camera(QString::fromLocal8Bit(argv[1]));
    Desktop desktop;
    desktop.Open();
    camera.Take(WindowNamed(QStringLiteral("gallery")), QStringLiteral("gallery"));
    for (const PaperKind& kind : PaperKinds()) {
        PaperWindow& window = desktop.Application().ShowPaper(kind);
        camera.Take(WindowNamed(ToQt(kind.window)), ToQt(kind.name));
        if (Wizard* const wizard = window.GetWizard()) {
            ShowDialog(camera, QStringLiteral("Easy Graph Wizard"), QStringLiteral("wizard"), wizard->Fields());
        }
        if (kind.name == "lined") {  // with every sort of remark
            window.form.Get<TextField>("EditHorzSpacing").SetText("abc");
            window.form.Get<TextField>("EditBlankTop").SetText("2.9");
            window.form.Get<TextField>("EditBlankLeft").SetText("-1");
            camera.Take(WindowNamed(ToQt(kind.window)), QStringLiteral("remarks"));
        }
    }
    bool noUpdateCheck = false;
    PrefsWindow preferences(noUpdateCheck);
    ShowDialog(camera, QStringLiteral("Preferences"), QStringLiteral("preferences"), preferences.form);
    return 0;
}
