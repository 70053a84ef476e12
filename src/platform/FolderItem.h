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

    /// The path is made absolute at once, so that a later change of the working directory does not move it. A path
    /// that no file can have, such as one too long, refers to a file that does not exist and cannot be created.
    explicit FolderItem(const std::filesystem::path& anyPath);

    /// The process's standard output: can be created (written) once, never read, and has no path.
    static FolderItem StandardOutput();

    /// The same file, which is created only if no link, pipe or device has its name.
    FolderItem WithoutLinks() const;

    /// The same file, whose creation waits for a reader where a pipe has its name. Elsewhere it fails.
    FolderItem WaitingForReader() const;

    /// Makes a folder in this one that only this user may look into. Its name begins with the prefix. Nothing if
    /// that fails.
    FolderItem MakePrivateFolder(const std::string& prefix) const;

    bool IsEmpty() const { return path.empty() && !standardOutput; }

    /// Absolute; empty for an empty reference and for standard output.
    const std::filesystem::path& Path() const { return path; }

    /// The last component of the path in UTF-8.
    std::string Name() const;

    bool Exists() const;

    /// Whether it is a regular file of this user, and no link to one.
    bool IsOwnRegularFile() const;

    /// Failure is silent: Exists() tells.
    void Delete() const;

    /// The file of that name in this folder; nothing if this is nothing.
    FolderItem Child(const std::string& name) const;

    /// Opens for writing a file that replaces this one when the stream is closed (see BinaryStream).
    /// On failure the stream is not open and its Error() tells why.
    BinaryStream CreateBinaryFile() const;

    /// Opens for writing a file that must not exist (see BinaryStream). Failure as above.
    BinaryStream CreateNewBinaryFile() const;

    /// Opens a regular file for reading. On failure the stream is not open and its Error() tells why.
    BinaryStream OpenAsBinaryFile() const;

    friend bool operator==(const FolderItem&, const FolderItem&) = default;

private:
    bool IsPossible() const;

    std::filesystem::path path;
    bool standardOutput = false;
    bool linksRefused = false;
    bool readerAwaited = false;
};

}  // namespace linealis
