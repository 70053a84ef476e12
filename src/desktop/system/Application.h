#pragma once

#include <QApplication>
#include <functional>
#include <string>

namespace linealis::desktop {

/// The Qt application. No exception leaves an event: it becomes a message, and all windows stay. What is selected
/// can be read in every theme: its ground is darkened or lightened until its text has a contrast of 4.5.
class Application final : public QApplication {
    Q_OBJECT

public:
    /// `theArgc` and `argv` are those of main, and must outlive this.
    Application(int& theArgc, char** argv);

    /// What shows the message.
    std::function<void(const std::string& message)> onError;

    bool notify(QObject* receiver, QEvent* event) override;
};

/// How far two opaque colors stand apart, from 1 for the same to 21 for black and white: the contrast ratio of the
/// Web Content Accessibility Guidelines 2.1.
double Contrast(const QColor& one, const QColor& other);

}  // namespace linealis::desktop
