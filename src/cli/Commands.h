#pragma once

#include "cli/Source.h"

#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// Prints it on standard output.
void Print(const Json& json);

/// Prints the kinds, a line each, or as JSON.
void ListKinds(bool asJson);

/// Prints the presets, of all kinds or of the one named, a line each, or as JSON. Throws UsageError if there is no
/// such kind.
void ListPresets(bool asJson, const std::optional<std::string>& kind);

/// Prints the form as JSON after the actions.
void ShowForm(const Source& source, const std::vector<Action>& actions);

/// Prints what the form holds: its kind, the page that a settings file refers to, and a line a control.
void Show(const Source& source, bool asJson);

/// Prints what differs between two forms of one kind, a line a control. Returns whether anything does. Throws
/// UsageError if they are of two kinds.
bool Differ(const Source& one, const Source& other, bool asJson);

/// Writes the settings file of the form after the actions. "-" is standard output.
void Save(const Source& source, const std::vector<Action>& actions, const std::string& output);

}  // namespace linealis::cli
