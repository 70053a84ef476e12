#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace linealis {

class BinaryStream;

/// What a file dialog is limited to: the name of a file type and its extension, without a dot.
struct FileType {
    std::string_view name;
    std::string_view extension;

    friend bool operator==(const FileType&, const FileType&) = default;
};

inline constexpr FileType pdfFileType{"Pdf", "pdf"};

/// A reference to a file, which may or may not exist. A default one refers to nothing.
class FolderItem {
public:
    FolderItem() = default;

    /// The path is made absolute at once, so that a later change of the working directory does not move it.
    explicit FolderItem(const std::filesystem::path& anyPath);

    /// The process's standard output: can be created (written) once, never read, and has no path.
    static FolderItem StandardOutput();

    bool IsEmpty() const { return path.empty() && !standardOutput; }
    bool IsStandardOutput() const { return standardOutput; }

    /// Absolute; empty for an empty reference and for standard output.
    const std::filesystem::path& Path() const { return path; }

    /// The last component of the path in UTF-8.
    std::string Name() const;

    bool Exists() const;

    /// Failure is silent: Exists() tells.
    void Delete() const;

    /// The file of that name in this folder; nothing if this is nothing.
    FolderItem Child(const std::string& name) const;

    /// Opens for writing a file that replaces this one when the stream is closed (see BinaryStream).
    /// On failure the stream is not open and its Error() tells why.
    BinaryStream CreateBinaryFile() const;

    /// Opens for reading. On failure the stream is not open and its Error() tells why.
    BinaryStream OpenAsBinaryFile() const;

    friend bool operator==(const FolderItem&, const FolderItem&) = default;

private:
    std::filesystem::path path;
    bool standardOutput = false;
};

}  // namespace linealis
