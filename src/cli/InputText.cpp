#include "cli/InputText.h"

#include "cli/Errors.h"
#include "platform/BinaryStream.h"
#include "platform/FolderItem.h"

#include <array>
#include <functional>
#include <iostream>

namespace linealis::cli {

namespace {

/// Puts the pieces together until there is no more.
std::string Gather(const std::string& name, std::size_t longest, const std::function<std::string()>& next)
{
    std::string text;
    for (std::string piece = next(); !piece.empty(); piece = next()) {
        text += piece;
        if (text.size() > longest) {
            throw WorkError{name + ": has more than " + std::to_string(longest) + " bytes"};
        }
    }
    return text;
}

}  // namespace

std::string ReadInput(const std::string& fileName, std::size_t longest)
{
    if (fileName == "-") {
        return Gather("standard input", longest, [] {
            std::array<char, BinaryStream::longestField> buffer{};
            std::cin.read(buffer.data(), buffer.size());
            return std::string(buffer.data(), static_cast<std::size_t>(std::cin.gcount()));
        });
    }
    BinaryStream file = FolderItem(fileName).OpenAsBinaryFile();
    if (!file.IsOpen()) {
        throw WorkError{fileName + ": " + file.Error().message()};
    }
    return Gather(fileName, longest, [&file] { return file.Read(BinaryStream::longestField); });
}

}  // namespace linealis::cli
