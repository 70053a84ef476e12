#include "cli/InputText.h"

#include "cli/Errors.h"
#include "platform/BinaryStream.h"
#include "platform/FilePath.h"
#include "platform/FolderItem.h"

namespace linealis::cli {

std::string ReadInput(const std::string& fileName, std::size_t longest)
{
    const bool isStandard = fileName == "-";
    const std::string name = isStandard ? "standard input" : fileName;
    BinaryStream file =
        isStandard ? BinaryStream::OnStandardInput() : FolderItem(PathOf(fileName)).OpenAsBinaryFile();
    std::string text = file.ReadRest(longest);
    if (file.Error()) {
        throw WorkError{name + ": " + file.Error().message()};
    }
    if (text.size() > longest) {
        throw WorkError{name + ": has more than " + std::to_string(longest) + " bytes"};
    }
    return text;
}

}  // namespace linealis::cli
