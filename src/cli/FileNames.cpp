#include "cli/FileNames.h"

#include "cli/Errors.h"
#include "platform/FilePath.h"
#include "text/LetterCase.h"

#include <filesystem>

namespace linealis::cli {

namespace fs = std::filesystem;

std::string EndingOf(const std::string& fileName)
{
    const std::string ending = PathOf(fileName).extension().string();
    return ending == "." ? "" : ending;
}

void CheckIsNamed(const std::string& output)
{
    if (output.empty()) {
        throw UsageError{"-o takes a file name, not an empty text"};
    }
}

void CheckIsPdf(const std::string& output)
{
    if (const std::string ending = EndingOf(output); !ending.empty() && !IsSameText(ending, ".pdf")) {
        throw Unknown("ending of -o", ending, {".pdf", "none, which is a PDF file"});
    }
}

void CheckIsSettings(std::string_view what, const std::string& fileName, const PaperKind& kind)
{
    const std::string own = "." + std::string(kind.settingsType.extension), ending = EndingOf(fileName);
    if (!ending.empty() && !IsSameText(ending, own)) {
        throw Unknown("ending of " + std::string(what) + " for " + std::string(kind.name), ending, {own, "none"});
    }
}

void CheckIsNoInput(const std::string& output, const std::vector<std::string>& inputs)
{
    for (const std::string& input : inputs) {
        std::error_code oneIsMissing;
        if (fs::equivalent(PathOf(input), PathOf(output), oneIsMissing)) {
            throw UsageError{"refusing to overwrite the input " + input};
        }
    }
}

FolderItem OutputFile(const std::string& name)
{
    return name == "-" ? FolderItem::StandardOutput() : FolderItem(PathOf(name)).WaitingForReader();
}

}  // namespace linealis::cli
