#include "platform/BinaryStream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace linealis {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t maximumPStringLength = 255;

std::error_code LastError()
{
    return {errno, std::generic_category()};
}

/// The length of the longest prefix of at most `limit` bytes that does not end inside a UTF-8 character.
std::size_t CutLength(std::string_view text, std::size_t limit)
{
    if (text.size() <= limit) {
        return text.size();
    }
    constexpr std::size_t longestCharacter = 4;
    const auto isContinuation = [&](std::size_t i) {
        return (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U;
    };
    for (std::size_t length = limit; length + longestCharacter > limit; --length) {
        if (!isContinuation(length)) {
            return length;
        }
    }
    return limit;  // not UTF-8: there is no boundary to respect
}

/// The file that a chain of symbolic links ends at, which need not exist. The path itself if it is no link.
fs::path FollowLinks(fs::path path, std::error_code& error)
{
    constexpr int longestChain = 40;
    for (int links = 0; links < longestChain; ++links) {
        std::error_code notALink;
        if (!fs::is_symlink(path, notALink)) {
            return path;
        }
        const fs::path destination = fs::read_symlink(path, error);
        if (error) {
            return path;
        }
        path = path.parent_path() / destination;
    }
    error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    return path;
}

/// Makes a new, empty file of its own name in the folder. Returns its descriptor, or -1 with errno set.
int CreateTemporary(const fs::path& folder, mode_t permissions, fs::path& path)
{
    constexpr int attempts = 1000;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        path = folder / (".linealis-" + std::to_string(::getpid()) + "-" + std::to_string(attempt));
        const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
        if (descriptor >= 0 || errno != EEXIST) {
            return descriptor;
        }
    }
    return -1;
}

}  // namespace

BinaryStream& BinaryStream::operator=(BinaryStream&& other) noexcept
{
    if (this != &other) {
        Discard();
        file = std::move(other.file);
        temporary = std::exchange(other.temporary, {});
        target = std::exchange(other.target, {});
        error = other.error;
    }
    return *this;
}

BinaryStream::~BinaryStream()
{
    Discard();
}

BinaryStream BinaryStream::Failed(std::error_code reason)
{
    BinaryStream stream;
    stream.error = reason;
    return stream;
}

BinaryStream BinaryStream::Adopt(int descriptor)
{
    if (descriptor < 0) {
        return Failed(LastError());
    }
    BinaryStream stream;
    stream.file.reset(::fdopen(descriptor, "wb"));
    if (!stream.file) {
        stream.error = LastError();
        ::close(descriptor);
    }
    return stream;
}

BinaryStream BinaryStream::Reading(const fs::path& path)
{
    std::error_code ignored;
    if (fs::is_directory(path, ignored)) {
        return Failed(std::make_error_code(std::errc::is_a_directory));
    }
    BinaryStream stream;
    stream.file.reset(std::fopen(path.c_str(), "rb"));
    if (!stream.file) {
        stream.error = LastError();
    }
    return stream;
}

BinaryStream BinaryStream::Replacing(const fs::path& path)
{
    std::error_code linkError;
    const fs::path target = FollowLinks(path, linkError);
    if (linkError) {
        return Failed(linkError);
    }
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) {
        return Failed(std::make_error_code(std::errc::is_a_directory));
    }
    if (exists && ::access(target.c_str(), W_OK) != 0) {
        return Failed(LastError());
    }
    if (exists && !S_ISREG(old.st_mode)) {
        return Adopt(::open(target.c_str(), O_WRONLY | O_CLOEXEC));
    }
    constexpr mode_t permissionBits = 07777;
    constexpr mode_t newFile = 0666;
    fs::path temporary;
    BinaryStream stream = Adopt(CreateTemporary(target.parent_path(), newFile, temporary));
    if (!stream.IsOpen()) {
        return stream;
    }
    stream.temporary = temporary;
    stream.target = target;
    if (exists && ::fchmod(::fileno(stream.file.get()), old.st_mode & permissionBits) != 0) {
        return Failed(LastError());
    }
    return stream;
}

BinaryStream BinaryStream::OnStandardOutput()
{
    return Adopt(::dup(STDOUT_FILENO));
}

void BinaryStream::NoteFailure()
{
    if (!error) {
        error = LastError();
    }
}

void BinaryStream::Discard()
{
    file.reset();
    if (!temporary.empty()) {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        temporary.clear();
    }
}

std::error_code BinaryStream::Close()
{
    if (!file) {
        return error;
    }
    if (std::fflush(file.get()) != 0) {
        NoteFailure();
    }
    // Only a file that replaces an older one has something to lose when the machine itself goes down.
    if (!error && !temporary.empty() && fs::exists(target) && ::fsync(::fileno(file.get())) != 0) {
        NoteFailure();
    }
    if (std::fclose(file.release()) != 0) {
        NoteFailure();
    }
    if (!error && !temporary.empty()) {
        fs::rename(temporary, target, error);
        if (!error) {
            temporary.clear();
        }
    }
    Discard();
    return error;
}

void BinaryStream::Write(std::string_view bytes)
{
    if (file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
        NoteFailure();
    }
}

void BinaryStream::WritePString(std::string_view text)
{
    const std::size_t length = CutLength(text, maximumPStringLength);
    const char lengthByte = static_cast<char>(length);
    Write({&lengthByte, 1});
    Write(text.substr(0, length));
}

void BinaryStream::WriteInt32(std::int32_t value)
{
    const auto bits = static_cast<std::uint32_t>(value);
    const std::array<char, 4> bytes = {static_cast<char>(bits >> 24U), static_cast<char>(bits >> 16U),
                                       static_cast<char>(bits >> 8U), static_cast<char>(bits)};
    Write({bytes.data(), bytes.size()});
}

void BinaryStream::WriteBoolean(bool value)
{
    const char byte = value ? 1 : 0;
    Write({&byte, 1});
}

std::string BinaryStream::Read(std::size_t count)
{
    constexpr std::size_t pieceSize = 65536;
    std::string bytes;
    while (file && bytes.size() < count) {
        const std::size_t old = bytes.size();
        const std::size_t wanted = std::min(pieceSize, count - old);
        bytes.resize(old + wanted);
        const std::size_t got = std::fread(bytes.data() + old, 1, wanted, file.get());
        bytes.resize(old + got);
        if (got < wanted) {
            break;
        }
    }
    return bytes;
}

std::string BinaryStream::ReadPString()
{
    const std::string length = Read(1);
    return length.empty() ? std::string() : Read(static_cast<unsigned char>(length[0]));
}

std::int32_t BinaryStream::ReadInt32()
{
    std::string bytes = Read(4);
    if (bytes.size() < 4) {
        return 0;
    }
    std::uint32_t value = 0;
    for (const char byte : bytes) {
        value = value << 8U | static_cast<unsigned char>(byte);
    }
    return static_cast<std::int32_t>(value);
}

bool BinaryStream::ReadBoolean()
{
    const std::string byte = Read(1);
    return !byte.empty() && byte[0] != 0;
}

}  // namespace linealis
