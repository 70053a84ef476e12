#pragma once

#include "app/Presets.h"
#include "cli/Actions.h"
#include "exchange/FormJson.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// Where a form comes from: a kind, a settings file, a preset or a form as JSON.
struct Source {
    std::string name;                ///< of the kind or the preset, or the file, whose extension tells the kind
    const Preset* preset = nullptr;  ///< null: it is none
    std::shared_ptr<const FormFile> form = nullptr;  ///< laid over what the name tells; null: there is none
};

/// What a command was given to begin with.
struct SourceOptions {
    std::vector<std::string> names;     ///< kinds and settings files
    std::optional<std::string> preset;  ///< its id
    std::optional<std::string> form;    ///< a file with a form (ParseForm); "-" is standard input
};

/// The sources that the options tell. A preset and a form tell their kind, whose name may stand beside them. Throws
/// UsageError if there is none, if there is no such preset, or if they say different kinds; WorkError if the form
/// cannot be read.
std::vector<Source> SourcesOf(const SourceOptions& options);

/// A kind, a settings file or a preset by its name.
Source SourceNamed(const std::string& name);

/// Throws UsageError if the source is no kind and no settings file.
const PaperKind& KindOf(const Source& source);

/// Whether the source is a settings file.
bool IsFile(const Source& source);

/// The kind of that name. Throws UsageError.
const PaperKind& KindNamed(const std::string& name);

struct OpenWindow {
    const PaperKind* kind;
    std::unique_ptr<PaperWindow> window;
    PageWarnings warnings;  ///< of the actions (Apply)
};

/// A window of the source, after the actions. Throws UsageError or WorkError.
OpenWindow Open(const Source& source, const std::vector<Action>& actions, ScreenlessPlatform& platform);

/// Throws UsageError if an output file has no name.
void CheckIsNamed(const std::string& output);

/// The file that an option names; "-" is standard output.
FolderItem OutputFile(const std::string& name);

}  // namespace linealis::cli
