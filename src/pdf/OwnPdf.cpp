#include "pdf/OwnPdf.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

namespace linealis {

bool IsOwnPdf(const FolderItem& file)
{
    std::error_code notThere;
    if (!std::filesystem::is_regular_file(file.Path(), notThere)) {
        return false;
    }
    std::ifstream stream(file.Path(), std::ios::binary);
    const std::string header = "%PDF-1.4\r";
    std::string start(header.size(), '\0');
    if (!stream.read(start.data(), static_cast<std::streamsize>(start.size())) || start != header) {
        return false;
    }
    // The information dictionary stands behind the page, in the last few thousand bytes.
    constexpr std::streamoff tailSize = 8192;
    stream.seekg(0, std::ios::end);
    stream.seekg(std::max<std::streamoff>(stream.tellg() - tailSize, 0));
    const std::string tail{std::istreambuf_iterator<char>(stream), {}};
    return tail.find("\r/Producer (Linealis)\r") != std::string::npos;
}

}  // namespace linealis
