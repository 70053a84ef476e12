#pragma once

#include "kinds/PaperKinds.h"
#include "platform/FolderItem.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis::cli {

/// What the file's name ends in, with its dot, such as ".svg"; empty if it has no ending.
std::string EndingOf(const std::string& fileName);

/// Throws UsageError if an output file has no name.
void CheckIsNamed(const std::string& output);

/// Throws UsageError unless the file ends as a file of pages does, or has no ending.
void CheckIsPdf(const std::string& output);

/// Throws UsageError unless the file ends as the settings files of the kind do, or has no ending. `what` is what
/// the file was given as.
void CheckIsSettings(std::string_view what, const std::string& fileName, const PaperKind& kind);

/// Throws UsageError if the output would overwrite one of the inputs, also by another path.
void CheckIsNoInput(const std::string& output, const std::vector<std::string>& inputs);

/// The file that an option names; "-" is standard output. The reader of a pipe is waited for.
FolderItem OutputFile(const std::string& name);

}  // namespace linealis::cli
