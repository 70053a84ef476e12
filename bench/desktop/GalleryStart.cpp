// The desktop program from its start to the gallery painted: what src/desktop/main.cpp does, and then the end.

#include "desktop/Desktop.h"
#include "desktop/SingleInstance.h"
#include "others/FirstPaint.h"

#include <unistd.h>

#include <QApplication>
#include <QIcon>
#include <QStringList>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("linealis-bench"));
    QApplication::setApplicationVersion(QStringLiteral(LINEALIS_VERSION));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/gallery/Graph.png")));

    linealis::desktop::SingleInstance instance(QStringLiteral("linealis-bench-%1").arg(::getpid()));
    if (instance.HandOver({})) {
        return 1;
    }
    instance.Listen();

    linealis::desktop::Desktop desktop;
    others::EndAfterFirstPaint end;
    desktop.Open();
    return QApplication::exec();
}
