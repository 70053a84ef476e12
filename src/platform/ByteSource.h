#pragma once

#include <cstdio>
#include <memory>
#include <string_view>
#include <system_error>

namespace linealis {

/// Bytes to read from front to back.
class ByteSource {
public:
    ByteSource() = default;
    virtual ~ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    /// Reads `count` bytes, or fewer at the end or on failure, and returns how many.
    virtual std::size_t Read(char* bytes, std::size_t count) = 0;

    /// Skips `count` bytes, or all that are left.
    virtual void Skip(std::size_t count) = 0;

    /// Continues `count` bytes before the end, or at the beginning if there are fewer.
    virtual void GoBackFromEnd(std::size_t count) = 0;

    /// Whether there is nothing left to read.
    virtual bool AtEnd() = 0;

    /// Why the last read failed, if it did.
    virtual std::error_code Error() const = 0;
};

/// Reads an open file and closes it.
class FileSource final : public ByteSource {
public:
    explicit FileSource(std::FILE* theFile) : file(theFile) {}

    std::size_t Read(char* bytes, std::size_t count) override;
    void Skip(std::size_t count) override;
    void GoBackFromEnd(std::size_t count) override;
    bool AtEnd() override;
    std::error_code Error() const override { return error; }

private:
    struct CloseFile {
        void operator()(std::FILE* handle) const { std::fclose(handle); }
    };

    /// Call it right after a read, before anything else can change errno.
    void NoteError();

    std::unique_ptr<std::FILE, CloseFile> file;
    std::error_code error;
};

/// Reads from memory, which must outlive the source.
class MemorySource final : public ByteSource {
public:
    explicit MemorySource(std::string_view theBytes) : all(theBytes), left(theBytes) {}

    std::size_t Read(char* bytes, std::size_t count) override;
    void Skip(std::size_t count) override;
    void GoBackFromEnd(std::size_t count) override;
    bool AtEnd() override { return left.empty(); }
    std::error_code Error() const override { return {}; }

private:
    std::string_view all;
    std::string_view left;
};

}  // namespace linealis
