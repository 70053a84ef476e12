#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <QWidget>
#include <cstdlib>

namespace others {

/// Ends the program when its first window has been painted, on the spot: tidying up is no part of a start.
class EndAfterFirstPaint final : public QObject {
public:
    EndAfterFirstPaint() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* const widget = qobject_cast<const QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget != nullptr && !painting) {
            painting = true;
            QTimer::singleShot(0, this, [] { std::_Exit(0); });  // when all of the window is painted
        }
        return false;
    }

private:
    bool painting = false;
};

}  // namespace others
