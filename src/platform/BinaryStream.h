#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace linealis {

namespace posix {
class OutputFile;
}

/// What writing does where it finds a link, pipe or device. With Follow, a pipe that nobody reads is a failure.
enum class Links { Follow, FollowAndWait, Refuse };

/// A binary file, or bytes in memory, open for reading or for writing. No operation throws but for want of memory.
///
/// Writing replaces a file whole: the bytes go to a new file, which Close() puts in the old one's place. Until then
/// the old file stands untouched, and it stays if writing fails or the stream is dropped unclosed. Its permissions
/// stay, and its owner, group and extended attributes where the system allows it. A writable file in a folder that
/// may not be written is written over at Close(). A pipe, a device, or what the process itself has open under the
/// name (/dev/stdout) is written directly, or refused with Links::Refuse, as a link is. A file that exists and may
/// not be written counts as one that cannot be opened.
///
/// Reading takes regular files only. Past its end everything reads as empty, 0 or false, and so does what the disk
/// fails to give; Error() tells the two apart.
class BinaryStream {
public:
    /// A stream that is not open.
    BinaryStream();
    BinaryStream(BinaryStream&& other) noexcept;
    BinaryStream& operator=(BinaryStream&& other) noexcept;
    BinaryStream(const BinaryStream&) = delete;
    BinaryStream& operator=(const BinaryStream&) = delete;
    ~BinaryStream();

    static BinaryStream Reading(const std::filesystem::path& path);
    static BinaryStream Replacing(const std::filesystem::path& path, Links links = Links::Follow);

    /// A file that is not there yet, by a link neither, and that only this user may read.
    static BinaryStream New(const std::filesystem::path& path);
    static BinaryStream OnStandardOutput();

    /// Reads the process's standard input, whatever that is.
    static BinaryStream OnStandardInput();

    /// Reads bytes that are no file's. They must outlive the stream.
    static BinaryStream FromMemory(std::string_view bytes);

    /// What is written goes behind the bytes, at once. They must outlive the stream.
    static BinaryStream IntoMemory(std::string& bytes);

    bool IsOpen() const { return input || output || memory != nullptr; }

    /// Why the stream could not be opened, or the first failure in reading or writing; empty when all is well.
    std::error_code Error() const { return error; }

    void Write(std::string_view bytes);

    /// A length byte and that many bytes. A text longer than longestPString is cut to that or a little less,
    /// between two UTF-8 characters.
    void WritePString(std::string_view text);

    static constexpr std::size_t longestPString = 255;

    /// Four bytes, the highest first, on every machine.
    void WriteInt32(std::int32_t value);

    /// One byte, 1 or 0.
    void WriteBoolean(bool value);

    /// The next `count` bytes, or what is left of the file if that is less. The count may come from the file
    /// itself: no field is longer than longestField, so more than that is passed over and reads as empty.
    std::string Read(std::size_t count);

    static constexpr std::size_t longestField = 65536;

    /// The last `count` bytes of the file, or all of it if that is less; at most longestField.
    std::string ReadLast(std::size_t count);

    /// What is left of the file. If that is more than `longest` bytes, more than `longest` of them.
    std::string ReadRest(std::size_t longest);

    /// Whether nothing is left to read.
    bool AtEnd();

    /// Whether a read has asked for more than there was.
    bool HasRunShort() const { return runShort; }

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

    /// Keeps the error of what was just read, if it has one.
    void NoteReadError();

    std::unique_ptr<std::FILE, CloseFile> input;
    std::unique_ptr<posix::OutputFile> output;
    bool runShort = false;
    std::string* memory = nullptr;  ///< what is written to instead of a file
    std::error_code error;
};

}  // namespace linealis
