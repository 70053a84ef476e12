#include "app/Version.h"
#include "desktop/Application.h"
#include "desktop/Desktop.h"
#include "desktop/SingleInstance.h"
#include "platform/OwnUser.h"
#include "platform/SignalPipe.h"

#ifdef LINEALIS_FONTCONFIG
#include <fontconfig/fontconfig.h>
#endif

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QSocketNotifier>
#include <cstdio>
#include <future>

namespace {

using namespace linealis;

constexpr int usageWrong = 2;

struct CommandLine {
    QCommandLineParser parser;
    QCommandLineOption help = parser.addHelpOption();
    QCommandLineOption version = parser.addVersionOption();

    CommandLine()
    {
        parser.setApplicationDescription(QStringLiteral("Makes printable paper."));
        parser.addPositionalArgument(QStringLiteral("files"), QStringLiteral("Settings files to open."),
                                     QStringLiteral("[files...]"));
    }
};

/// Prints what is asked for with --help or --version. Returns whether something was. Needs no screen.
bool PrintsHelpOrVersion(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    CommandLine line;
    line.parser.parse(QCoreApplication::arguments());
    if (line.parser.isSet(line.help)) {
        std::fputs(line.parser.helpText().toUtf8().constData(), stdout);
    } else if (line.parser.isSet(line.version)) {
        std::printf("linealis %s\n", versionText);
    } else {
        return false;
    }
    return true;
}

/// The documents on the command line, as a program with another working directory finds them.
QStringList Documents(const QStringList& arguments)
{
    QStringList files;
    for (const QString& argument : arguments) {
        files << QFileInfo(argument).absoluteFilePath();
    }
    return files;
}

/// Reads the system's list of fonts, which takes longer than all else before the first window is painted. Qt has it
/// read when it first needs a font, and then finds it there.
void ReadFonts()
{
#ifdef LINEALIS_FONTCONFIG
    FcInit();
#endif
}

/// A folder of this user's own. Qt is told of it too, which would otherwise complain that there is none.
QString RuntimeFolder()
{
    const auto folder = PrivateRuntimeFolder(QDir::tempPath().toStdString());
    if (!folder.empty()) {
        qputenv("XDG_RUNTIME_DIR", folder.c_str());
    }
    return QString::fromStdString(folder.string());
}

/// What tells the running programs of one user apart: the display that they are on.
QString NameOfInstance()
{
    const QString display = qEnvironmentVariable("WAYLAND_DISPLAY", qEnvironmentVariable("DISPLAY"));
    return QStringLiteral("linealis-") + QString::fromLatin1(display.toUtf8().toPercentEncoding());
}

int RunProgram(desktop::Application& application, desktop::SingleInstance& instance, const QStringList& documents)
{
    desktop::Desktop desktop;
    application.onError = [&](const std::string& message) { desktop.OwnPlatform().MsgBox(message); };
    QObject::connect(&instance, &desktop::SingleInstance::Received, &desktop, [&](const QStringList& files) {
        desktop.Raise();
        desktop.OpenDocuments(files);
    });
    QSocketNotifier endingSignals(PipeOfEndingSignals(), QSocketNotifier::Read);
    QObject::connect(&endingSignals, &QSocketNotifier::activated, &desktop, [&] {
        endingSignals.setEnabled(false);
        desktop.Quit();
    });
    desktop.Open();
    desktop.OpenDocuments(documents);
    const int status = desktop::Application::exec();
    application.onError = nullptr;
    return status;
}

}  // namespace

int main(int argc, char** argv)
{
    if (PrintsHelpOrVersion(argc, argv)) {
        return 0;
    }
    const std::future<void> fonts = std::async(std::launch::async, ReadFonts);
    const QString runtimeFolder = RuntimeFolder();
    desktop::Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Linealis"));
    QApplication::setApplicationVersion(QString::fromUtf8(versionText));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/gallery/Graph.png")));

    CommandLine line;
    if (!line.parser.parse(QApplication::arguments())) {
        std::fprintf(stderr, "linealis: %s; possible: --help, --version, and settings files to open\n",
                     line.parser.errorText().toUtf8().constData());
        return usageWrong;
    }
    const QStringList documents = Documents(line.parser.positionalArguments());
    desktop::SingleInstance instance(runtimeFolder, NameOfInstance());
    if (instance.HandOver(documents)) {
        std::puts("Linealis is already running; its window comes to the front.");
        return 0;
    }
    instance.Listen();
    return RunProgram(application, instance, documents);
}
