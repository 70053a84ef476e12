// What every Qt program takes to show a window: starts, paints an empty one and ends.

#include "FirstPaint.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    others::EndAfterFirstPaint end;
    QMainWindow window;
    window.resize(640, 480);
    window.show();
    return QApplication::exec();
}
