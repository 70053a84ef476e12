#pragma once

#include "cli/Actions.h"
#include "exchange/FormJson.h"
#include "kinds/Presets.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// What a form starts from. All commands accept the same sources.
struct Source {
    enum class Sort {
        Kind,  ///< a kind of paper in its opening state
        Preset,
        Settings,  ///< a settings file; its extension determines the kind
        Form       ///< an SVG, PNG, PDF, or JSON file with a form, which names its kind
    };

    std::string name;  ///< of the kind, preset, or file
    Sort sort;
    const PaperKind* kind = nullptr;                 ///< null for Sort::Form, where only the file tells it
    const Preset* preset = nullptr;                  ///< null except for Sort::Preset
    std::shared_ptr<const FormFile> form = nullptr;  ///< applied on top of the source; may be null

    bool IsFile() const { return sort == Sort::Settings || sort == Sort::Form; }
};

/// Returns a description of what SourceNamed accepts, for help and messages.
std::string SourceWords();

/// The sources that a command line gives, not yet examined.
struct SourceOptions {
    std::vector<std::string> names;     ///< as SourceNamed takes them
    std::optional<std::string> preset;  ///< its id
    std::optional<std::string> form;    ///< a file for ParseForm; "-" is standard input
};

/// Returns the sources that the options describe, at least one. A preset or form implies its kind; the name of the
/// kind may be given too. Reads the form, if there is one. Throws UsageError if there is no source, a source does
/// not exist, or the options contradict each other; WorkError if the form cannot be read.
std::vector<Source> SourcesOf(const SourceOptions& options);

/// Returns the source with that name. Recognizes files by their extension and does not open them. Throws UsageError
/// if the name fits no source.
Source SourceNamed(const std::string& name);

/// Returns the kind of the source. Reads the file if only the file tells it. Throws UsageError or WorkError.
const PaperKind& KindOf(const Source& source);

/// Returns the kind with that name. Throws UsageError if there is none.
const PaperKind& KindNamed(const std::string& name);

/// Returns the files that the sources and actions read. Without `withSettings`, omits settings files, which a newly
/// saved settings file may replace.
std::vector<std::string> InputsOf(const std::vector<Source>& sources, const std::vector<Action>& actions,
                                  bool withSettings = true);

/// A window on a form that is ready to be used.
struct OpenWindow {
    const PaperKind* kind;
    std::unique_ptr<PaperWindow> window;
    PageWarnings warnings;  ///< of the form file and the actions
};

/// Opens a window of the source and performs the actions. `platform` must outlive the result. Throws UsageError or
/// WorkError.
OpenWindow Open(const Source& source, const std::vector<Action>& actions, ScreenlessPlatform& platform);

}  // namespace linealis::cli
