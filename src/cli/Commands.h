#pragma once

#include "cli/Source.h"

#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// Prints the JSON on standard output, indented. Escapes control characters that a terminal would obey, and
/// replaces bytes that are not UTF-8.
void Print(const Json& json);

/// Prints the kinds of paper, one per line, or as JSON.
void ListKinds(bool asJson);

/// Prints the devices that pictures can be made for, one per line, or as JSON.
void ListDevices(bool asJson);

/// Prints the presets of all kinds, or of one, one per line, or as JSON. Throws UsageError if there is no such
/// kind.
void ListPresets(bool asJson, const std::optional<std::string>& kind);

/// Prints as JSON the form that the actions leave. Throws UsageError or WorkError if the source or an action fails.
void ShowForm(const Source& source, const std::vector<Action>& actions);

/// Prints the form as a link, on a line of its own or as JSON. Throws UsageError or WorkError.
void ShowLink(const Source& source, const std::vector<Action>& actions, bool asJson);

/// Prints the JSON Schema of the forms of a kind, or of all kinds. Throws UsageError if there is no such kind.
void ShowSchema(const std::optional<std::string>& kind);

/// Prints what a form holds: its kind, a summary of its page, the page file that a settings file refers to, and one
/// line per control. Throws UsageError or WorkError if the source cannot be opened.
void Show(const Source& source, bool asJson);

/// Prints the differences between two forms of one kind, one line per control. Returns whether there are any.
/// Throws UsageError if the forms are of different kinds; UsageError or WorkError if a source cannot be opened.
bool Differ(const Source& one, const Source& other, bool asJson);

/// Writes the form that the actions leave to a settings file. "-" is standard output. Warns about fields with
/// unusable texts and about everything that a settings file does not keep; prints the warnings in an answer if
/// `asJson`. Throws UsageError if the file name is unsuitable or belongs to an input, WorkError if the file cannot
/// be written.
void Save(const Source& source, const std::vector<Action>& actions, const std::string& output, bool asJson);

}  // namespace linealis::cli
