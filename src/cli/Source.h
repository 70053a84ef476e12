#pragma once

#include "cli/Actions.h"
#include "exchange/FormJson.h"
#include "kinds/Presets.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// What a form begins with, as every command takes it.
struct Source {
    enum class Sort {
        Kind,  ///< as a fresh window has it
        Preset,
        Settings,  ///< a settings file, whose extension tells the kind
        Form       ///< an SVG, PNG or JSON file that carries a form, which tells its kind
    };

    std::string name;  ///< of the kind, preset or file
    Sort sort;
    const PaperKind* kind = nullptr;                 ///< null: the file tells it
    const Preset* preset = nullptr;                  ///< null: it is none
    std::shared_ptr<const FormFile> form = nullptr;  ///< laid over what the name tells; null: there is none

    bool IsFile() const { return sort == Sort::Settings || sort == Sort::Form; }
};

/// Describes what SourceNamed takes.
std::string SourceWords();

/// What a command was given to begin with.
struct SourceOptions {
    std::vector<std::string> names;     ///< as SourceNamed takes them
    std::optional<std::string> preset;  ///< its id
    std::optional<std::string> form;    ///< a file with a form (ParseForm); "-" is standard input
};

/// The sources that the options tell. A preset and a form tell their kind, whose name may stand beside them. Throws
/// UsageError if there is none or one that cannot be, or if they say different kinds; WorkError if the form cannot
/// be read.
std::vector<Source> SourcesOf(const SourceOptions& options);

/// A file is not looked into. Throws UsageError if the name is that of no source.
Source SourceNamed(const std::string& name);

/// Looks into a file that carries a form. Throws UsageError or WorkError.
const PaperKind& KindOf(const Source& source);

/// The kind of that name. Throws UsageError.
const PaperKind& KindNamed(const std::string& name);

/// The files that the sources and actions name; without the settings files only those that a settings file cannot
/// take the place of.
std::vector<std::string> InputsOf(const std::vector<Source>& sources, const std::vector<Action>& actions,
                                  bool withSettings = true);

struct OpenWindow {
    const PaperKind* kind;
    std::unique_ptr<PaperWindow> window;
    PageWarnings warnings;  ///< of the actions (Apply)
};

/// A window of the source, after the actions. Throws UsageError or WorkError.
OpenWindow Open(const Source& source, const std::vector<Action>& actions, ScreenlessPlatform& platform);

}  // namespace linealis::cli
