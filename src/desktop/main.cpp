#include "desktop/Desktop.h"
#include "desktop/SingleInstance.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>

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

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Linealis"));
    QApplication::setApplicationVersion(QStringLiteral(LINEALIS_VERSION));
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
