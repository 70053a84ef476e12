#pragma once

#include <QSettings>

namespace linealis::desktop {

/// What windows keep between runs: their places and sizes, what they show, the folders of their dialogs. Two
/// running programs may use it at once.
class WindowSettings final : public QSettings {
    Q_OBJECT

public:
    WindowSettings();
};

}  // namespace linealis::desktop
