#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace linealis {

class BinaryStream;

/// The file type that a file dialog is restricted to: a display name, and an extension without a dot. An empty
/// extension accepts every file.
struct FileType {
    std::string_view name;
    std::string_view extension;

    friend bool operator==(const FileType&, const FileType&) = default;
};

inline constexpr FileType pdfFileType{"Pdf", "pdf"};

/// Refers to a file that may or may not exist. A default-constructed reference refers to nothing.
class FolderItem {
public:
    FolderItem() = default;

    /// Makes the path absolute at once, so that a later change of the working directory does not affect it. A path
    /// that no file can have, for example one that is too long, refers to a file that does not exist and cannot be
    /// created.
    explicit FolderItem(const std::filesystem::path& anyPath);

    /// The standard output of the process. It can be created (written) once, cannot be read, and has no path.
    static FolderItem StandardOutput();

    /// Returns a reference to the same file whose creation fails if the name belongs to a link, pipe, or device.
    FolderItem WithoutLinks() const;

    /// Returns a reference to the same file whose creation waits for a reader if the name belongs to a pipe.
    /// Without this, creation fails if the pipe has no reader.
    FolderItem WaitingForReader() const;

    /// Creates a folder inside this one that only this user can access. Its name is the prefix and six random
    /// characters. Returns an empty reference on failure.
    FolderItem MakePrivateFolder(const std::string& prefix) const;

    bool IsEmpty() const { return path.empty() && !standardOutput; }

    /// The absolute path. Empty for an empty reference and for standard output.
    const std::filesystem::path& Path() const { return path; }

    /// Returns the last component of the path in UTF-8, or "standard output".
    std::string Name() const;

    bool Exists() const;

    /// Whether this is a regular file, not a link to one, that belongs to this user.
    bool IsOwnRegularFile() const;

    /// Deletes the file. Reports no failure; call Exists() to find out.
    void Delete() const;

    /// Returns the file of that name in this folder, or an empty reference if this one is empty.
    FolderItem Child(const std::string& name) const;

    /// Opens a file for writing that replaces this one when the stream is closed (see BinaryStream). On failure the
    /// stream is not open, and its Error() says why.
    BinaryStream CreateBinaryFile() const;

    /// Opens a file for writing that must not exist yet (see BinaryStream). On failure the stream is not open, and
    /// its Error() says why.
    BinaryStream CreateNewBinaryFile() const;

    /// Opens a regular file for reading. On failure the stream is not open, and its Error() says why.
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
