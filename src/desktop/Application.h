#pragma once

#include <QApplication>
#include <functional>
#include <string>

namespace linealis::desktop {

/// The Qt application. No exception leaves an event: it becomes a message, and all windows stay.
class Application final : public QApplication {
    Q_OBJECT

public:
    /// `theArgc` and `argv` are those of main, and must outlive this.
    Application(int& theArgc, char** argv) : QApplication(theArgc, argv) {}

    /// What shows the message.
    std::function<void(const std::string& message)> onError;

    bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace linealis::desktop
