// The baseline: a Qt program that shows an empty window.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(640, 480);
    window.show();
    return QApplication::exec();
}
