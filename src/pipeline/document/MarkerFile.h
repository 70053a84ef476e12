#pragma once

#include "platform/FolderItem.h"
#include "platform/Platform.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace linealis {

/// The type of a marker file: any file, which must contain text.
inline constexpr FileType markerFileType{"text", ""};

/// The lines of a plain text file. Lines end in LF, CR LF, or CR; a leading byte order mark is skipped. A file has
/// no lines, and Error() says why, if it cannot be opened, is not text, is larger than 64 MiB, or has a line longer
/// than 64 KiB. Copies share the text.
class MarkerFile {
public:
    /// Reads the whole file at once. An empty reference gives no lines and no error.
    explicit MarkerFile(const FolderItem& item = {});
    /// Takes the text of a file that was read elsewhere. `name` stands for the file in Error().
    MarkerFile(const std::string& name, std::string bytes);

    /// Returns a function that reads the lines from the first: each call stores the next one, without its line end,
    /// in `line` and returns whether there was one. It can be called on any thread and outlive this object.
    std::function<bool(std::string& line)> Lines() const;

    /// "FILE: reason" if the file could not be used. Empty if it could, or if no file was given.
    const Message& Error() const { return whyNot; }

    bool operator==(const MarkerFile& other) const { return *text == *other.text && whyNot == other.whyNot; }

private:
    void Take(const std::string& name, std::string bytes, const std::error_code& error);

    std::shared_ptr<const std::string> text;  ///< never null; empty if the file could not be used
    Message whyNot;
};

/// The fields of a line of a marker file, which are separated by single blanks. A missing field is empty; what
/// follows the third is ignored.
struct MarkerFields {
    explicit MarkerFields(std::string_view line);

    std::string_view x;
    std::string_view y;
    std::string_view text;
};

}  // namespace linealis
