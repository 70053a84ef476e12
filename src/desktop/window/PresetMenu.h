#pragma once

#include "app/OwnPresets.h"
#include "kinds/Presets.h"

#include <QMenu>
#include <QPixmap>
#include <QString>
#include <functional>
#include <optional>
#include <string>

namespace linealis::desktop {

class DesktopPlatform;

/// The functions and data that a preset menu needs from its window. The references must outlive the menu.
struct PresetMenuHost {
    using Lay = std::function<void(PaperWindow& window)>;

    const PaperKind& kind;
    Platform& platform;
    /// Calls `lay` to change the window, as one undo step named `title`.
    std::function<void(const QString& title, const Lay& lay)> layOver;
    /// Restores the form as it was when the last window of the kind was closed.
    std::function<void()> bringBack;
    std::function<void()> saveAsPreset;
    std::function<void(bool on)> useAsDefault;
    std::function<void(const OwnPreset& preset)> deletePreset;
    /// Lets the user choose a preset of any kind from pictures.
    std::function<void()> choosePreset;
};

/// Fills the menu with the picker, the presets of the kind, the user's own presets, the state in which a window was
/// last closed, and commands to save and delete presets. Fills it again each time it opens.
void FillPresetMenu(QMenu& menu, const PresetMenuHost& host);

/// Returns a picture of the page of a preset that fits into `size`, in device-independent pixels. Pictures are
/// cached.
QPixmap PresetPicture(const Preset& preset, const QSize& size, double pixelRatio);

// Implementations for the functions of a host. All of them report failures to the user.

/// Asks for a name and saves the window as a preset. Asks again until that succeeds or the user cancels. Returns
/// the name, or nothing.
std::optional<std::string> SaveAsPreset(QWidget& parent, DesktopPlatform& platform, const PaperKind& kind,
                                        const PaperWindow& window);

/// Stores the current state of the window as the default of its kind, or removes the default if `on` is false.
/// Returns whether that succeeded.
bool UseAsDefault(Platform& platform, const PaperKind& kind, const PaperWindow& window, bool on);

/// Deletes the preset after the user has confirmed it. Returns whether it was deleted.
bool DeletePreset(Platform& platform, const OwnPreset& preset);

}  // namespace linealis::desktop
