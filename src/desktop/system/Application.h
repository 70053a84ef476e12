#pragma once

#include "text/Message.h"

#include <QApplication>
#include <functional>

namespace linealis::desktop {

/// The Qt application. Turns an exception from an event handler into a message, so that all windows stay open.
/// Makes selected text readable in every theme: darkens or lightens the selection color until the contrast is at
/// least 4.5.
class Application final : public QApplication {
    Q_OBJECT

public:
    /// `theArgc` and `argv` are the arguments of main. They must outlive the application.
    Application(int& theArgc, char** argv);

    /// Shows the message of an exception. If empty, exceptions are discarded.
    std::function<void(const Message& message)> onError;

    bool notify(QObject* receiver, QEvent* event) override;
};

/// Returns the contrast ratio of two opaque colors as the Web Content Accessibility Guidelines 2.1 define it: from
/// 1 for equal colors to 21 for black and white.
double Contrast(const QColor& one, const QColor& other);

}  // namespace linealis::desktop
