#include "pdf/OwnPdf.h"

#include "platform/BinaryStream.h"

#include <string>

namespace linealis {

bool IsPdf(const FolderItem& file)
{
    const std::string header = "%PDF-";
    return file.OpenAsBinaryFile().Read(header.size()) == header;
}

bool IsOwnPdf(const FolderItem& file)
{
    const std::string header = "%PDF-1.4\r";
    BinaryStream stream = file.OpenAsBinaryFile();
    if (stream.Read(header.size()) != header) {
        return false;
    }
    // The information dictionary follows the page content, within the last few thousand bytes.
    constexpr std::size_t tailSize = 8192;
    return stream.ReadLast(tailSize).find("\r/Producer (Linealis)\r") != std::string::npos;
}

}  // namespace linealis
