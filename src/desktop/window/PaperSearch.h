#pragma once

#include "kinds/PaperKinds.h"
#include "kinds/Presets.h"
#include "platform/FolderItem.h"
#include "text/Message.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// A search result: something that the user can start a page from.
struct PaperHit {
    enum class Sort { Kind, Preset, OwnPreset, RecentFile };

    Sort sort;
    const PaperKind* kind;  ///< never null
    std::string title;
    const Preset* preset = nullptr;  ///< for Sort::Preset only
    FolderItem file;                 ///< for Sort::OwnPreset and Sort::RecentFile only
};

/// Returns everything in which every word occurs: kinds, then recent files, then presets (those in the user's units
/// first), then the user's own presets. Finds titles in English and in the language. Ignores the case of Western
/// European letters. If `words` contains no word, returns suggestions: the recent files, and one preset for each of
/// a few kinds.
std::vector<PaperHit> FindPapers(std::string_view words, const FolderItem& preferencesFolder, bool isMetric,
                                 const Language& language = Language());

/// Returns only the presets, including the user's own, in which every word occurs; all of them if there is no word.
/// They are ordered by group, and within a group as FindPapers orders them.
std::vector<PaperHit> FindPresets(std::string_view words, const FolderItem& preferencesFolder, bool isMetric,
                                  const Language& language = Language());

/// Returns the group of a hit that is a preset.
PresetGroup GroupOf(const PaperHit& hit);

}  // namespace linealis
