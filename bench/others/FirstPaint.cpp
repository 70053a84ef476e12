// Linked into a Qt program, ends it as soon as its first window is painted, without cleanup, which is not part of
// the start.

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
            QTimer::singleShot(0, this, [] { std::_Exit(0); });  // after the whole window is painted
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
