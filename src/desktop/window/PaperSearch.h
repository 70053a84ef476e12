#pragma once

#include "kinds/PaperKinds.h"
#include "kinds/Presets.h"
#include "platform/FolderItem.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// Something that a paper can begin with.
struct PaperHit {
    enum class Sort { Kind, Preset, OwnPreset, RecentFile };

    Sort sort;
    const PaperKind* kind;  ///< never null
    std::string title;
    const Preset* preset = nullptr;  ///< of the sort Preset
    FolderItem file;                 ///< of the sorts OwnPreset and RecentFile
};

/// The kinds, then the presets (those of the user's units first), then the user's own, then the files used last, in
/// which every word occurs. Case does not count, in Western European letters. Without a word, what is likely to be
/// wanted: the files used last, and a preset of each of a few kinds.
std::vector<PaperHit> FindPapers(std::string_view words, const FolderItem& preferencesFolder, bool isMetric);

}  // namespace linealis
