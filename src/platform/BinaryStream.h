#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace linealis {

class ByteSource;
class OutputFile;

/// How a write treats an existing link, pipe, or device. Follow fails on a pipe without a reader; FollowAndWait
/// waits for the reader; Refuse accepts only a regular file.
enum class Links { Follow, FollowAndWait, Refuse };

/// A binary file, or bytes in memory, open for reading or for writing. No operation throws, except std::bad_alloc.
///
/// Writing replaces a file as a whole: the bytes go to a new file, and Close() moves it into place. Until then the
/// old file is untouched, and it stays if writing fails or the stream is destroyed without Close(). The new file
/// keeps the permissions of the old one, and its owner, group, and extended attributes where the system allows it.
/// If the file is writable but its folder is not, Close() overwrites the file in place. A pipe, a device, or a file
/// that the process itself has open under that name (/dev/stdout) is written directly, without replacing anything.
/// Links::Refuse rejects these, and links too. An existing file without write permission counts as a file that
/// cannot be opened.
///
/// Reading accepts only regular files. Past the end of the file, every read returns an empty, 0, or false value. A
/// read error has the same effect; Error() distinguishes the two.
class BinaryStream {
public:
    /// Constructs a stream that is not open.
    BinaryStream();
    BinaryStream(BinaryStream&& other) noexcept;
    BinaryStream& operator=(BinaryStream&& other) noexcept;
    BinaryStream(const BinaryStream&) = delete;
    BinaryStream& operator=(const BinaryStream&) = delete;
    ~BinaryStream();

    /// Opens a regular file for reading. On failure the stream is not open, and Error() says why.
    static BinaryStream Reading(const std::filesystem::path& path);
    /// Opens a file for writing that replaces any existing file. On failure the stream is not open, and Error()
    /// says why.
    static BinaryStream Replacing(const std::filesystem::path& path, Links links = Links::Follow);

    /// Creates a file that must not exist yet, not even as a link. Only this user may read it.
    static BinaryStream New(const std::filesystem::path& path);
    /// Writes to the standard output of the process, directly.
    static BinaryStream OnStandardOutput();

    /// Reads the standard input of the process, which need not be a regular file.
    static BinaryStream OnStandardInput();

    /// Reads from memory. `bytes` must outlive the stream.
    static BinaryStream FromMemory(std::string_view bytes);

    /// Appends everything that is written to `bytes`, immediately. `bytes` must outlive the stream.
    static BinaryStream IntoMemory(std::string& bytes);

    bool IsOpen() const { return input || output || memory != nullptr; }

    /// The reason why the stream could not be opened, or the first read or write failure. Empty if there was none.
    std::error_code Error() const { return error; }

    /// Appends the bytes. Does nothing after a failure.
    void Write(std::string_view bytes);

    /// Writes a length byte followed by the text. A text longer than longestPString bytes is cut to that length or
    /// slightly less, so that no UTF-8 character is split.
    void WritePString(std::string_view text);

    static constexpr std::size_t longestPString = 255;

    /// Writes four bytes in big-endian order, on every machine.
    void WriteInt32(std::int32_t value);

    /// Writes one byte, 1 or 0.
    void WriteBoolean(bool value);

    /// Reads the next `count` bytes, or fewer at the end of the file. Because `count` may come from the file
    /// itself, a count above longestField is skipped and reads as empty: no valid field is that long.
    std::string Read(std::size_t count);

    static constexpr std::size_t longestField = 65536;

    /// Reads the last `count` bytes of the file, or the whole file if it is shorter. Reads at most longestField
    /// bytes.
    std::string ReadLast(std::size_t count);

    /// Reads the rest of the file. Stops once the result is longer than `longest` bytes, so a result longer than
    /// `longest` means that the file is too large.
    std::string ReadRest(std::size_t longest);

    /// Whether there is nothing left to read.
    bool AtEnd();

    /// Whether a read has asked for more bytes than were left.
    bool HasRunShort() const { return runShort; }

    /// Reads a length byte and a text of that many bytes.
    std::string ReadPString();
    /// Reads four bytes in big-endian order. Returns 0 if fewer are left.
    std::int32_t ReadInt32();

    /// Reads one byte. Any value except 0 is true.
    bool ReadBoolean();

    /// Closes the stream. A file that is being written is moved into place now, unless an earlier write failed.
    /// Returns Error().
    std::error_code Close();

private:
    /// Stores the error of the last read, if it failed and no earlier error is stored.
    void NoteReadError();

    std::unique_ptr<ByteSource> input;
    std::unique_ptr<OutputFile> output;
    bool runShort = false;
    std::string* memory = nullptr;  ///< receives the written bytes instead of a file
    std::error_code error;
};

}  // namespace linealis
