// Linked into a Qt program, ends it when its first window has been painted, on the spot: tidying up is no part of a
// start.

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <cstdlib>

namespace {

class EndAfterFirstPaint final : public QObject {
protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType() && !painting) {
            painting = true;
            QTimer::singleShot(0, this, [] { std::_Exit(0); });  // when all of the window is painted
        }
        return false;
    }

private:
    bool painting = false;
};

void WaitForFirstPaint()
{
    static EndAfterFirstPaint end;
    qApp->installEventFilter(&end);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(WaitForFirstPaint)
