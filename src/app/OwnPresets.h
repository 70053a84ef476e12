#pragma once

#include "kinds/PaperKinds.h"
#include "platform/FolderItem.h"

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace linealis {

/// A preset that the user has saved: a settings file in the folder of them.
struct OwnPreset {
    std::string name;  ///< of the file, without its extension
    FolderItem file;
};

/// What the user keeps of papers besides documents: presets, a default for each kind, and how a window of each kind
/// was left. All of it are ordinary settings files in the preferences folder. Without that folder nothing is kept,
/// and nothing fails.
class OwnPresets {
public:
    explicit OwnPresets(FolderItem preferencesFolder) : folder(std::move(preferencesFolder)) {}

    /// The presets of a kind, sorted by name.
    std::vector<OwnPreset> List(const PaperKind& kind) const;

    /// Why nothing can be saved under the name, as a sentence; empty if all is well. A name is a file name without
    /// its extension: it is not empty, has no slash and no control character, does not begin with a dot, and is at
    /// most 200 bytes long.
    static std::string NameProblem(std::string_view name);

    /// The file of the preset of that name, which need not exist. Nothing if the name has a problem.
    FolderItem File(std::string_view name, const PaperKind& kind) const;

    /// Saves the window, which is of the kind, under the name. An older preset of that name is replaced. Returns
    /// invalid_argument if the name has a problem.
    std::error_code Save(std::string_view name, const PaperKind& kind, const PaperWindow& window) const;

    static std::error_code Delete(const OwnPreset& preset);

    /// What a new window of the kind begins with, if the file exists.
    FolderItem DefaultFile(const PaperKind& kind) const { return FileOf("defaults", kind); }
    std::error_code SaveDefault(const PaperKind& kind, const PaperWindow& window) const;
    std::error_code ForgetDefault(const PaperKind& kind) const;

    /// How the last window of the kind was when it closed.
    FolderItem LeftFile(const PaperKind& kind) const { return FileOf("left", kind); }
    std::error_code SaveLeft(const PaperKind& kind, const PaperWindow& window) const;

private:
    FolderItem FileOf(const char* subfolder, const PaperKind& kind) const;

    FolderItem folder;
};

/// Loads the preset into a window of its kind; the file that the window's page goes to stays. A preset that cannot
/// be opened changes nothing, and is noted.
void LayOver(const OwnPreset& preset, PaperWindow& window, Platform& platform);

}  // namespace linealis
