#include "desktop/system/Application.h"
#include "desktop/system/SingleInstance.h"
#include "desktop/system/WindowLanguage.h"
#include "desktop/window/Desktop.h"
#include "kinds/PaperKinds.h"
#include "platform/OwnUser.h"
#include "platform/SignalPipe.h"
#include "platform/Version.h"

#ifdef LINEALIS_FONTCONFIG
#include <fontconfig/fontconfig.h>
#endif

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSocketNotifier>
#include <cstdio>
#include <future>
#include <memory>
#include <optional>

namespace {

using namespace linealis;

constexpr int usageWrong = 2;  // exit status

/// The environment variable with which a desktop permits a program that it starts to come to the front.
constexpr const char* activationVariable = "XDG_ACTIVATION_TOKEN";

/// Returns the arguments of main without Qt's own options that take a value, and without these values.
QStringList WithoutQtOptions(int argc, char** argv)
{
    const QStringList withWord = {QStringLiteral("platform"),        QStringLiteral("style"),
                                  QStringLiteral("stylesheet"),      QStringLiteral("display"),
                                  QStringLiteral("geometry"),        QStringLiteral("session"),
                                  QStringLiteral("qwindowgeometry"), QStringLiteral("qwindowtitle"),
                                  QStringLiteral("platformtheme"),   QStringLiteral("platformpluginpath")};
    QStringList own;
    for (int i = 0; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        const QString name = QString(argument).remove(QRegularExpression(QStringLiteral("^--?")));
        if (argument.startsWith(QLatin1Char('-')) && withWord.contains(name)) {
            ++i;
        } else {
            own << argument;
        }
    }
    return own;
}

QStringList KindNames()
{
    QStringList names;
    for (const PaperKind& kind : PaperKinds()) {
        names << QString::fromUtf8(kind.name.data(), static_cast<qsizetype>(kind.name.size()));
    }
    return names;
}

/// Parses the command line. Prints help, version, and errors, so it works without a screen.
struct CommandLine {
    QStringList files;          ///< files and kinds, as Desktop::OpenDocuments expects them
    std::optional<int> status;  ///< if set, the program must exit with this status

    CommandLine(int argc, char** argv);
};

CommandLine::CommandLine(int argc, char** argv)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Makes printable paper."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption paper(QStringLiteral("paper"), QStringLiteral("Open the form of a kind of paper."),
                                   QStringLiteral("kind"));
    parser.addOption(paper);
    parser.addPositionalArgument(QStringLiteral("files"), QStringLiteral("Settings files to open."),
                                 QStringLiteral("[files...]"));
    if (!parser.parse(WithoutQtOptions(argc, argv))) {
        std::fprintf(stderr,
                     "linealis: %s; possible: --paper KIND, --help, --version, and settings files to open\n",
                     parser.errorText().toUtf8().constData());
        status = usageWrong;
    } else if (parser.isSet(help)) {
        int none = 1;
        const QCoreApplication application(none, argv);  // the help text contains its name
        std::fputs(parser.helpText().toUtf8().constData(), stdout);
        status = 0;
    } else if (parser.isSet(version)) {
        std::printf("linealis %s\n", versionText);
        status = 0;
    }
    for (const QString& kind : parser.values(paper)) {
        if (FindPaperKind(kind.toStdString()) == nullptr) {
            std::fprintf(stderr, "linealis: unknown kind of paper '%s'; possible: %s\n", kind.toUtf8().constData(),
                         KindNames().join(QStringLiteral(", ")).toUtf8().constData());
            status = usageWrong;
        }
        files << desktop::kindRequest + kind;
    }
    // Absolute paths, because the program that opens them may have another working directory.
    for (const QString& file : parser.positionalArguments()) {
        if (file.isEmpty()) {
            std::fputs("linealis: a file name is empty\n", stderr);
            status = usageWrong;
        }
        files << QFileInfo(file).absoluteFilePath();
    }
}

/// Reads the system's list of fonts, the slowest step before the first window is painted. Runs on another thread
/// during startup; when Qt needs a font, the list is already loaded.
void ReadFonts()
{
#ifdef LINEALIS_FONTCONFIG
    FcInit();
#endif
}

/// Returns a folder that only this user can access, or an empty text. Also sets the environment variable for Qt,
/// which otherwise warns that it is missing.
QString RuntimeFolder()
{
    const auto folder = PrivateRuntimeFolder(QDir::tempPath().toStdString());
    if (!folder.empty()) {
        qputenv("XDG_RUNTIME_DIR", folder.c_str());
    }
    return QString::fromStdString(folder.string());
}

/// Returns a name for the running program that contains its display: each display of a user has its own program.
/// The screen number of an X11 display, as in ":0.1", does not count.
QString NameOfInstance()
{
    const bool isX11 = QGuiApplication::platformName() == QLatin1String("xcb");
    const QString display = qEnvironmentVariable(isX11 ? "DISPLAY" : "WAYLAND_DISPLAY");
    const QRegularExpression screen(QStringLiteral("(:\\d+)\\.\\d+$"));
    return QStringLiteral("linealis-") +
           QString::fromLatin1(
               QString(display).replace(screen, QStringLiteral("\\1")).toUtf8().toPercentEncoding());
}

QIcon ProgramIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/icons/linealis-%1.png").arg(size));
    }
    return icon;
}

/// Makes the message that this start is waiting for the running program.
std::unique_ptr<QMessageBox> WaitingBox(bool forFiles)
{
    auto box = std::make_unique<QMessageBox>();
    box->setWindowTitle(QStringLiteral("Linealis"));
    box->setText(desktop::Desktop::tr("Linealis is already running but does not answer yet."));
    box->setInformativeText(forFiles ? desktop::Desktop::tr("Your files will open there as soon as it answers.")
                                     : desktop::Desktop::tr("Its window opens as soon as it answers."));
    box->setStandardButtons(QMessageBox::Cancel);
    return box;
}

/// Hands the files to the running program, or becomes the running program. Shows a message with a Cancel button
/// while it has to wait.
desktop::SingleInstance::Start HandOver(desktop::SingleInstance& instance, const QStringList& files,
                                        const QString& activationToken)
{
    std::unique_ptr<QMessageBox> box;
    return instance.HandOver(files, activationToken, [&] {
        box = WaitingBox(!files.isEmpty());
        QObject::connect(box.get(), &QDialog::finished, &instance, &desktop::SingleInstance::Cancel);
        box->show();
    });
}

/// Lets the next window come to the front, with the permission that another start has handed over. On Wayland, Qt
/// 6.4 and later take it from the environment when a window is activated, and remove it there.
void UseActivationToken(const QString& token)
{
    if (!token.isEmpty() && QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        qputenv(activationVariable, token.toUtf8());
    }
}

int RunProgram(desktop::Application& application, desktop::SingleInstance& instance, const QStringList& documents)
{
    desktop::Desktop desktop;
    application.onError = [&](const Message& message) { desktop.OwnPlatform().MsgBox(message); };
    QObject::connect(&instance, &desktop::SingleInstance::Received, &desktop,
                     [&](const QStringList& files, const QString& activationToken) {
                         UseActivationToken(activationToken);
                         desktop.Raise();
                         desktop.OpenDocuments(files);
                     });
    QObject::connect(&desktop, &desktop::Desktop::Quitting, &instance, &desktop::SingleInstance::Stop);
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
    const CommandLine line(argc, argv);
    if (line.status) {
        return *line.status;
    }
    // Before the application shows a window, because Qt removes the token then.
    const QString activationToken = qEnvironmentVariable(activationVariable);
    const std::future<void> fonts = std::async(std::launch::async, ReadFonts);
    // Before the application is created, because Qt reads the environment variable there.
    const QString runtimeFolder = RuntimeFolder();
    desktop::Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Linealis"));
    desktop::InstallLanguage();
    QApplication::setApplicationVersion(QString::fromUtf8(versionText));
    QGuiApplication::setDesktopFileName(QString::fromUtf8(applicationId));
    QApplication::setWindowIcon(ProgramIcon());

    desktop::SingleInstance instance(runtimeFolder, NameOfInstance());
    QApplication::setQuitOnLastWindowClosed(
        false);  // closing the message box about the running program must not end this one
    switch (HandOver(instance, line.files, activationToken)) {
    case desktop::SingleInstance::Start::HandedOver:
        std::puts("Linealis is already running; its window comes to the front.");
        return 0;
    case desktop::SingleInstance::Start::Canceled:
        std::fputs("linealis: the running program has not answered, and nothing was opened\n", stderr);
        return 1;
    case desktop::SingleInstance::Start::First:
        break;
    }
    return RunProgram(application, instance, line.files);
}
