#include "kinds/Presets.h"

#include <algorithm>
#include <string>

namespace linealis {

namespace {

void Set(const Setting& setting, const Preset& preset, const PaperWindow& window)
{
    SetControl(preset.kind, window.form, setting);
}

}  // namespace

std::string_view TitleOf(PresetGroup group)
{
    switch (group) {
    case PresetGroup::Squares:
        return "Squares";
    case PresetGroup::Ruled:
        return "Ruled";
    case PresetGroup::Dots:
        return "Dots";
    case PresetGroup::HexagonsAndTriangles:
        return "Hexagons and Triangles";
    case PresetGroup::Logarithmic:
        return "Logarithmic";
    case PresetGroup::ProbabilityAndHydraulic:
        return "Probability and Hydraulic";
    case PresetGroup::Notes:
        return "Notes";
    case PresetGroup::Other:
        return "Other";
    case PresetGroup::Yours:
        break;
    }
    return "Yours";
}

std::vector<const Preset*> PresetsFor(bool metric)
{
    std::vector<const Preset*> presets;
    for (const Preset& preset : Presets()) {
        presets.push_back(&preset);
    }
    std::stable_partition(presets.begin(), presets.end(),
                          [&](const Preset* preset) { return preset->isMetric == metric; });
    return presets;
}

const Preset* FindPreset(std::string_view id)
{
    const std::span<const Preset> presets = Presets();
    const auto found =
        std::find_if(presets.begin(), presets.end(), [&](const Preset& preset) { return preset.id == id; });
    return found == presets.end() ? nullptr : &*found;
}

const PaperKind& KindOf(const Preset& preset)
{
    return *FindPaperKind(preset.kind);
}

std::unique_ptr<PaperWindow> MakeWindow(const Preset& preset, Platform& platform)
{
    std::unique_ptr<PaperWindow> window = MakeWindow(KindOf(preset), platform);
    for (const Setting& setting : preset.settings) {
        Set(setting, preset, *window);
    }
    return window;
}

void LayOver(const Preset& preset, PaperWindow& window, Platform& platform)
{
    const std::unique_ptr<PaperWindow> fresh = MakeWindow(preset, platform);
    const std::string settings = fresh->SettingsBytes();
    window.LayOver(BinaryStream::FromMemory(settings));
    for (const Setting& setting : preset.settings) {
        // What still differs now is not stored in a settings file.
        const Control* const wanted = fresh->form.Find(setting.control);
        if (window.form.Find(setting.control)->State().content != wanted->State().content) {
            Set(setting, preset, window);
        }
    }
}

}  // namespace linealis
