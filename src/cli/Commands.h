#pragma once

#include "app/Presets.h"
#include "cli/Actions.h"

#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// Where a form comes from: a kind, a settings file or a preset.
struct Source {
    std::string name;                ///< of the kind or the preset, or the file, whose extension tells the kind
    const Preset* preset = nullptr;  ///< null: it is none
};

/// The sources of those names, or the preset, beside which the name of its own kind may stand. Throws UsageError
/// if there is neither, if there is no such preset, or if the names say otherwise.
std::vector<Source> SourcesOf(const std::vector<std::string>& names, const std::optional<std::string>& preset);

/// The file that an option names; "-" is standard output.
FolderItem OutputFile(const std::string& name);

/// Prints the kinds, a line each, or as JSON.
void ListKinds(bool asJson);

/// Prints the presets, of all kinds or of the one named, a line each, or as JSON. Throws UsageError if there is no
/// such kind.
void ListPresets(bool asJson, const std::optional<std::string>& kind);

/// Prints the form as JSON after the actions.
void ShowForm(const Source& source, const std::vector<Action>& actions);

struct GenerateRequest {
    std::vector<Source> sources;
    std::vector<Action> actions;
    std::string output;           ///< a file name, or "-" for standard output; empty with outputDirectory
    std::string outputDirectory;  ///< where each source's page goes, named after it
    bool view = false;            ///< open each page in the viewer
    bool check = false;           ///< make no page, and say what will disappoint on it
    bool asJson = false;          ///< of check
};

/// Makes the pages, or checks them. Of several sources each is tried; throws at the end if one failed.
void Generate(const GenerateRequest& request);

/// Writes the settings file of the form after the actions. "-" is standard output.
void Save(const Source& source, const std::vector<Action>& actions, const std::string& output);

}  // namespace linealis::cli
