#pragma once

#include "kinds/PaperKinds.h"
#include "platform/FolderItem.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis::cli {

/// Returns the extension of a file name with its dot, such as ".svg". Empty if it has none.
std::string EndingOf(const std::string& fileName);

/// Throws UsageError if the name of an output file is empty.
void CheckIsNamed(const std::string& output);

/// Throws UsageError unless the file name ends in ".pdf", in any case, or has no extension.
void CheckIsPdf(const std::string& output);

/// Throws UsageError unless the file name has the settings extension of the kind, in any case, or no extension.
/// `what` is the option that named the file, for the message.
void CheckIsSettings(std::string_view what, const std::string& fileName, const PaperKind& kind);

/// Throws UsageError if the output is the same file as one of the inputs, even by another path or through a link.
/// Files that do not exist cannot be the same.
void CheckIsNoInput(const std::string& output, const std::vector<std::string>& inputs);

/// Returns the output file that an option names; "-" is standard output. Creating a file on a pipe waits for a
/// reader.
FolderItem OutputFile(const std::string& name);

}  // namespace linealis::cli
