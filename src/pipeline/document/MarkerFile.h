#pragma once

#include "platform/FolderItem.h"

#include <string>
#include <string_view>

namespace linealis {

/// The type of marker files in file dialogs: any file.
inline constexpr FileType textFileType{"text", ""};

/// Reads a plain text file line by line. Lines end in LF, CR LF, or CR; a leading byte order mark is skipped. A
/// file has no lines, and Error() says why, if it cannot be opened, is not text, is larger than 64 MiB, or has a
/// line longer than 64 KiB.
class MarkerFile {
public:
    /// Reads the whole file at once. An empty reference gives no lines and no error.
    explicit MarkerFile(const FolderItem& item);
    MarkerFile(const MarkerFile&) = delete;
    MarkerFile& operator=(const MarkerFile&) = delete;

    /// Reads the next line without its line end. Returns whether there was one.
    bool NextLine(std::string& line);

    /// "FILE: reason" if the file could not be used. Empty if it could, or if no file was given.
    const std::string& Error() const { return whyNot; }

private:
    std::string_view CutLine();

    std::string text;
    std::string_view rest;  ///< of the text
    std::string whyNot;
};

}  // namespace linealis
