#pragma once

#include "cli/Actions.h"

#include <string>
#include <vector>

namespace linealis::cli {

/// A kind's name, or a settings file whose extension tells the kind.
using Source = std::string;

/// The file that an option names; "-" is standard output.
FolderItem OutputFile(const std::string& name);

/// Prints the kinds, a line each, or as JSON.
void ListKinds(bool asJson);

/// Prints the form as JSON after the actions.
void ShowForm(const Source& source, const std::vector<Action>& actions);

struct GenerateRequest {
    std::vector<Source> sources;
    std::vector<Action> actions;
    std::string output;           ///< a file name, or "-" for standard output; empty with outputDirectory
    std::string outputDirectory;  ///< where each source's page goes, named after it
    bool view = false;            ///< open each page in the viewer
};

/// Makes the pages. Of several sources each is tried; throws at the end if one failed.
void Generate(const GenerateRequest& request);

/// Writes the settings file of the form after the actions. "-" is standard output.
void Save(const Source& source, const std::vector<Action>& actions, const std::string& output);

}  // namespace linealis::cli
