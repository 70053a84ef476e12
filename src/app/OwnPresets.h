#pragma once

#include "kinds/PaperKinds.h"
#include "platform/FolderItem.h"

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace linealis {

/// A preset that the user has saved: a settings file in the preset folder.
struct OwnPreset {
    std::string name;  ///< the file name without its extension
    FolderItem file;
};

/// The papers that the user keeps besides documents: presets, a default for each kind, and the last state of the
/// window of each kind. All are ordinary settings files in the preferences folder. Without that folder, nothing is
/// kept, nothing is found, and no operation fails.
class OwnPresets {
public:
    explicit OwnPresets(FolderItem preferencesFolder) : folder(std::move(preferencesFolder)) {}

    /// Returns the presets of a kind, sorted by name. Skips everything that is not a regular file with a valid
    /// name. Returns nothing if the folder cannot be read.
    std::vector<OwnPreset> List(const PaperKind& kind) const;

    /// Returns why no preset can have this name, as a sentence for the user, or an empty text if it is valid. A
    /// name is a file name without its extension: it has a character other than a blank, no slash, and no control
    /// character, does not begin with a dot, and is at most 200 bytes long.
    static Message NameProblem(std::string_view name);

    /// Returns the file of the preset with that name, which need not exist; an empty reference if the name is not
    /// valid.
    FolderItem File(std::string_view name, const PaperKind& kind) const;

    /// Saves the window, which must be of the kind, under the name. Replaces an existing preset of that name.
    /// Returns invalid_argument if the name is not valid.
    std::error_code Save(std::string_view name, const PaperKind& kind, const PaperWindow& window) const;

    /// Deletes the file of a preset. A missing file is not an error.
    static std::error_code Delete(const OwnPreset& preset);

    /// Returns the file with the default of the kind, which need not exist. A new window of the kind starts with
    /// it.
    FolderItem DefaultFile(const PaperKind& kind) const { return FileOf("defaults", kind); }
    /// Saves the window, which must be of the kind, as the default of the kind.
    std::error_code SaveDefault(const PaperKind& kind, const PaperWindow& window) const;
    /// Deletes the default, if there is one.
    std::error_code ForgetDefault(const PaperKind& kind) const;

    /// Returns the file with the state in which the window of the kind was last closed. It need not exist.
    FolderItem LeftFile(const PaperKind& kind) const { return FileOf("left", kind); }
    /// Saves the window, which must be of the kind, as last closed.
    std::error_code SaveLeft(const PaperKind& kind, const PaperWindow& window) const;

private:
    FolderItem FileOf(const char* subfolder, const PaperKind& kind) const;

    FolderItem folder;
};

/// Loads the preset into a window of its kind. The output file of the window stays the same. A preset that cannot
/// be opened changes nothing and is reported through Platform::Note.
void LayOver(const OwnPreset& preset, PaperWindow& window, Platform& platform);

}  // namespace linealis
