#pragma once

#include "platform/BinaryStream.h"
#include "platform/FolderItem.h"

#include <string>

namespace linealis {

/// A plain text file, read line by line. Lines end in LF, CR LF or CR. A file that cannot be opened, or is not
/// text, has no lines.
class MarkerFile {
public:
    explicit MarkerFile(const FolderItem& item);

    /// Reads the next line, without its end. Returns whether there was one.
    bool NextLine(std::string& line);

private:
    bool NextByte(char& byte);
    void ReadPiece();

    BinaryStream stream;
    std::string piece;
    std::size_t position = 0;
};

}  // namespace linealis
