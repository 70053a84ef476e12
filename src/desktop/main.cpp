#include "app/Version.h"
#include "desktop/Desktop.h"
#include "desktop/SingleInstance.h"

#ifdef LINEALIS_FONTCONFIG
#include <fontconfig/fontconfig.h>
#endif

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <future>

namespace {

/// The documents on the command line, as a program with another working directory finds them.
QStringList Documents()
{
    QStringList files;
    for (const QString& argument : QApplication::arguments().mid(1)) {
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

}  // namespace

int main(int argc, char** argv)
{
    const std::future<void> fonts = std::async(std::launch::async, ReadFonts);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Linealis"));
    QApplication::setApplicationVersion(QString::fromUtf8(linealis::versionText));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/gallery/Graph.png")));

    const QStringList documents = Documents();
    linealis::desktop::SingleInstance instance(QStringLiteral("linealis"));
    if (instance.HandOver(documents)) {
        return 0;
    }
    instance.Listen();

    linealis::desktop::Desktop desktop;
    QObject::connect(&instance, &linealis::desktop::SingleInstance::Received, &desktop,
                     [&](const QStringList& files) {
                         desktop.Raise();
                         for (const QString& file : files) {
                             desktop.OpenDocument(file);
                         }
                     });
    desktop.Open();
    for (const QString& document : documents) {
        desktop.OpenDocument(document);
    }
    return QApplication::exec();
}
