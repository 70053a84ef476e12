#include "cli/InputText.h"

#include "cli/Errors.h"
#include "platform/BinaryStream.h"
#include "platform/FilePath.h"
#include "platform/FolderItem.h"

namespace linealis::cli {

namespace {

std::string ReadRest(const std::string& name, BinaryStream file, std::size_t most)
{
    std::string text = file.ReadRest(most);
    if (file.Error()) {
        throw WorkError{name + ": " + file.Error().message()};
    }
    return text;
}

}  // namespace

std::string ReadInput(const std::string& fileName, std::size_t longest)
{
    const bool isStandard = fileName == "-";
    const std::string name = isStandard ? "standard input" : fileName;
    std::string text = ReadRest(
        name, isStandard ? BinaryStream::OnStandardInput() : FolderItem(PathOf(fileName)).OpenAsBinaryFile(),
        longest);
    if (text.size() > longest) {
        throw WorkError{name + ": has more than " + std::to_string(longest) + " bytes"};
    }
    return text;
}

std::string ReadBeginning(const std::string& fileName, std::size_t most)
{
    return ReadRest(fileName, FolderItem(PathOf(fileName)).OpenAsBinaryFile(), most);
}

}  // namespace linealis::cli
