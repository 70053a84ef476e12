#pragma once

#include <QSettings>

namespace linealis::desktop {

/// Stores what windows keep between runs: positions and sizes, what they show, and the folders of dialogs. Several
/// running programs can use it at the same time.
class WindowSettings final : public QSettings {
    Q_OBJECT

public:
    WindowSettings();
};

}  // namespace linealis::desktop
