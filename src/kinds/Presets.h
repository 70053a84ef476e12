#pragma once

#include "kinds/PaperKinds.h"
#include "pipeline/form/SetControl.h"

#include <span>
#include <string_view>
#include <vector>

namespace linealis {

/// What people look for. Lists that show groups show them in this order.
enum class PresetGroup {
    Squares,
    Ruled,
    Dots,
    HexagonsAndTriangles,
    Logarithmic,
    ProbabilityAndHydraulic,
    Notes,
    Other,
    Yours,  ///< saved by the user; no preset of the table is in it
};

/// Returns the title of the group, for users.
std::string_view TitleOf(PresetGroup group);

/// A paper that is ready to use: a kind, and the settings to apply to a new form of it. All lists of presets come
/// from the same table.
struct Preset {
    std::string_view id;     ///< its unique name, for the command line
    std::string_view title;  ///< for users
    std::string_view kind;   ///< the name of its PaperKind
    PresetGroup group = PresetGroup::Other;
    bool isMetric = true;           ///< A4 and centimeters; if false, Letter and inches
    std::string_view keywords;      ///< further words to find it by, separated by blanks
    std::vector<Setting> settings;  ///< applied in this order; units come before lengths
};

/// Returns all presets in the order in which lists show them. Similar presets are together.
std::span<const Preset> Presets();

/// Returns all presets, those for the preferred paper first: A4 if `metric`, otherwise Letter. Both groups keep the
/// order of the table.
std::vector<const Preset*> PresetsFor(bool metric);

/// Returns the preset with that id, or null.
const Preset* FindPreset(std::string_view id);

/// Returns the kind of a preset. The preset must come from the table, whose kinds all exist.
const PaperKind& KindOf(const Preset& preset);

/// Creates a window of the kind of the preset and applies the preset. `platform` must outlive the window.
std::unique_ptr<PaperWindow> MakeWindow(const Preset& preset, Platform& platform);

/// Loads the preset into a window of its kind, as if it were a settings file. The output file of the window stays
/// the same. Values that the preset sets but no settings file stores, such as the title of polar paper, are set
/// too; all other values that a settings file does not store stay the same.
void LayOver(const Preset& preset, PaperWindow& window, Platform& platform);

}  // namespace linealis
