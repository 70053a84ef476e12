#pragma once

#include "platform/FolderItem.h"

#include <string>
#include <string_view>

namespace linealis {

/// A plain text file, read line by line. Lines end in LF, CR LF or CR. A file that cannot be opened, is not text,
/// is larger than 64 MiB or has a line longer than 64 KiB has no lines, and Error() tells why.
class MarkerFile {
public:
    explicit MarkerFile(const FolderItem& item);
    MarkerFile(const MarkerFile&) = delete;
    MarkerFile& operator=(const MarkerFile&) = delete;

    /// Reads the next line, without its end. Returns whether there was one.
    bool NextLine(std::string& line);

    /// "FILE: why it has no lines"; empty if all is well, or if no file was given.
    const std::string& Error() const { return whyNot; }

private:
    std::string_view CutLine();

    std::string text;
    std::string_view rest;  ///< of the text
    std::string whyNot;
};

}  // namespace linealis
