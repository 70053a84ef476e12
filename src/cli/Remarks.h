#pragma once

#include "cli/Source.h"
#include "pipeline/document/Paper.h"

#include <string>

namespace linealis::cli {

/// What a command says about the file that it writes: prints it on standard error or, with --json, adds it to the
/// answer.
class Remarks {
public:
    /// Prints what is said if `theAnswer` is null. Otherwise adds it there, to the lists "messages" and "warnings".
    explicit Remarks(Json* theAnswer = nullptr);

    /// Says the messages and notes of the platform.
    void Say(const ScreenlessPlatform& platform) const;
    /// Warns about a source or a file with the name `about`.
    void Warn(const std::string& about, const PageWarnings& warnings) const;
    /// Warns about fonts that this machine replaces on a page. Prints each warning once per run, however many pages
    /// use the font. Thread-safe.
    void WarnOfFonts(const std::string& about, std::string_view content) const;

private:
    Json* answer;
};

/// Returns a warning in an answer as JSON.
Json WarningJson(const std::string& about, const PageWarning& warning);

/// Returns the beginning of an answer about a file: what it is made from, and its name.
Json FileJson(const std::string& source, const std::string& file);

/// Throws UsageError if an answer as JSON is wanted and the file is standard output, too.
void CheckRoomForAnswer(bool asJson, const std::string& output);

}  // namespace linealis::cli
