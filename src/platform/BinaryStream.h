#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace linealis {

/// A binary file, open for reading or for writing.
///
/// Writing replaces a file whole: the bytes go to a new file beside it, which Close() renames over it. Until
/// then the old file stands untouched, and it stays if writing fails or the stream is dropped unclosed. A link
/// is followed, and the old file's permissions stay. A pipe or a device is written directly. A file that exists
/// and may not be written counts as one that cannot be opened.
///
/// Reading never fails once the file is open: past its end everything reads as empty, 0 or false.
class BinaryStream {
public:
    /// A stream that is not open.
    BinaryStream() = default;
    BinaryStream(BinaryStream&& other) noexcept { *this = std::move(other); }
    BinaryStream& operator=(BinaryStream&& other) noexcept;
    BinaryStream(const BinaryStream&) = delete;
    BinaryStream& operator=(const BinaryStream&) = delete;
    ~BinaryStream();

    static BinaryStream Reading(const std::filesystem::path& path);
    static BinaryStream Replacing(const std::filesystem::path& path);
    static BinaryStream OnStandardOutput();

    bool IsOpen() const { return file != nullptr; }

    /// Why the stream could not be opened, or the first failure in writing; empty when all is well.
    std::error_code Error() const { return error; }

    void Write(std::string_view bytes);

    /// A length byte and that many bytes. A longer text is cut to at most 255 bytes, between two UTF-8
    /// characters.
    void WritePString(std::string_view text);

    /// Four bytes, the highest first, on every machine.
    void WriteInt32(std::int32_t value);

    /// One byte, 1 or 0.
    void WriteBoolean(bool value);

    /// The next `count` bytes, or what is left of the file if that is less. The count may come from the file
    /// itself: memory is taken only for bytes that are there.
    std::string Read(std::size_t count);

    std::string ReadPString();
    std::int32_t ReadInt32();

    /// Any byte but 0 is true.
    bool ReadBoolean();

    /// Ends the stream; a file being written takes its place only now. Returns Error().
    std::error_code Close();

private:
    struct CloseFile {
        void operator()(std::FILE* handle) const { std::fclose(handle); }
    };

    static BinaryStream Failed(std::error_code reason);
    static BinaryStream Adopt(int descriptor);
    void NoteFailure();
    void Discard();

    std::unique_ptr<std::FILE, CloseFile> file;
    std::filesystem::path temporary;  ///< what is being written, until it is renamed; empty otherwise
    std::filesystem::path target;     ///< what `temporary` will replace
    std::error_code error;
};

}  // namespace linealis
