#pragma once

#include "kinds/PaperKinds.h"
#include "pipeline/form/SetControl.h"

#include <span>
#include <string_view>
#include <vector>

namespace linealis {

/// A paper ready to be used: a kind, and what is set on a fresh form of it. Every list of presets is made of the
/// one table of them.
struct Preset {
    std::string_view id;     ///< on the command line
    std::string_view title;  ///< for people
    std::string_view kind;   ///< name of its PaperKind
    bool isMetric = true;    ///< A4 and centimeters; otherwise Letter, and lengths are in inches where it has any
    std::string_view keywords;      ///< what else it may be looked for by; words parted by blanks
    std::vector<Setting> settings;  ///< in the order in which a person would set them: the units first
};

/// All presets, those of a kind together, in the order in which lists show them.
std::span<const Preset> Presets();

/// The presets of A4 first where the lengths are metric, otherwise those of Letter. Within each the order is that
/// of the table.
std::vector<const Preset*> PresetsFor(bool metric);

/// The preset of that id, or none.
const Preset* FindPreset(std::string_view id);

const PaperKind& KindOf(const Preset& preset);

/// A window of the preset's kind that shows it.
std::unique_ptr<PaperWindow> MakeWindow(const Preset& preset, Platform& platform);

/// Loads the preset into a window of its kind, as a settings file of it would be loaded. The file that the window's
/// page goes to stays. What the preset sets and no settings file holds, such as the title of a polar paper, is set
/// too; anything else that a settings file does not hold stays.
void LayOver(const Preset& preset, PaperWindow& window, Platform& platform);

}  // namespace linealis
