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

/// What a preset menu asks of the window that it belongs to. All of it lives as long as the menu.
struct PresetMenuHost {
    using Lay = std::function<void(PaperWindow& window)>;

    const PaperKind& kind;
    Platform& platform;
    /// Has `lay` change the window, as one step that is named after `title`.
    std::function<void(const QString& title, const Lay& lay)> layOver;
    /// Brings back how a window of the kind was left last.
    std::function<void()> bringBack;
    std::function<void()> saveAsPreset;
    std::function<void(bool on)> useAsDefault;
    std::function<void(const OwnPreset& preset)> deletePreset;
};

/// Fills the menu with the presets of the kind, those of the user, how a window was left last, and what can be done
/// with presets. It is filled anew each time it opens.
void FillPresetMenu(QMenu& menu, const PresetMenuHost& host);

/// Whether the user's system counts in metric units, so that presets of A4 come first.
bool PrefersMetric();

/// The page of a preset, made small to fit in `size` pixels of the screen. Made once for each size.
QPixmap PresetPicture(const Preset& preset, const QSize& size, double pixelRatio);

// What a host may do when it is asked. Each tells the user what went wrong.

/// Asks for a name and saves the window under it, until that is done or the user gives up. Returns the name, or
/// nothing.
std::optional<std::string> SaveAsPreset(QWidget& parent, DesktopPlatform& platform, const PaperKind& kind,
                                        const PaperWindow& window);

/// Keeps the window as it is for the default of its kind, or forgets the default. Returns whether that was done.
bool UseAsDefault(Platform& platform, const PaperKind& kind, const PaperWindow& window, bool on);

/// Asks whether the preset shall be deleted, and does it. Returns whether it was.
bool DeletePreset(Platform& platform, const OwnPreset& preset);

}  // namespace linealis::desktop
