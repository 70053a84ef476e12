#include "platform/linux/ReplacingFile.h"

#include "platform/FileFault.h"
#include "platform/linux/Attributes.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/sendfile.h>
#include <sys/stat.h>

#include <charconv>
#include <csignal>
#include <optional>

namespace linealis::posix {

namespace fs = std::filesystem;

namespace {

constexpr mode_t ownerOnly = 0600;
constexpr mode_t newFile = 0666;  // minus the umask

/// Blocks all signals of this thread as long as the object exists.
class SignalsHeld {
public:
    SignalsHeld()
    {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before);
    }
    ~SignalsHeld() { ::pthread_sigmask(SIG_SETMASK, &before, nullptr); }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;

private:
    sigset_t before{};
};

std::error_code WhyNoPath(const fs::path& path)
{
    if (path.native().find('\0') != std::string::npos) {
        return std::make_error_code(std::errc::invalid_argument);
    }
    return path.empty() ? std::make_error_code(std::errc::no_such_file_or_directory) : std::error_code();
}

std::string DescriptorPath(const Descriptor& file)
{
    return "/proc/self/fd/" + std::to_string(file.Number());
}

/// Follows a chain of links, such as /dev/stdout, and returns the descriptor of this process that it ends at, if
/// any.
std::optional<int> DescriptorAtEndOf(fs::path path)
{
    const fs::path own = "/proc/" + std::to_string(::getpid()) + "/fd";
    constexpr int longestChain = 40;
    for (int links = 0; links < longestChain; ++links) {
        std::error_code error;
        const std::string name = path.filename().string();
        int number = 0;
        const auto digits = std::from_chars(name.data(), name.data() + name.size(), number);
        if (digits.ec == std::errc() && digits.ptr == name.data() + name.size() &&
            fs::canonical(path.parent_path(), error) == own) {
            return number;
        }
        const fs::path next = fs::read_symlink(path, error);
        if (error) {
            return std::nullopt;
        }
        path = path.parent_path() / next;
    }
    return std::nullopt;
}

bool AreSameFile(const struct stat& one, const struct stat& other)
{
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Returns the descriptor of this process that the path, such as /dev/stdout, refers to. The system must be able to
/// follow the path too: in a shared folder, it does not follow links that another user created.
std::optional<int> OwnDescriptor(const fs::path& path)
{
    const std::optional<int> number = DescriptorAtEndOf(path);
    if (!number) {
        return std::nullopt;
    }
    const Descriptor reached(::open(path.c_str(), O_PATH | O_CLOEXEC));
    struct stat named {
    }, own{};
    const bool isOwn = reached.IsOpen() && ::fstat(reached.Number(), &named) == 0 && ::fstat(*number, &own) == 0 &&
                       AreSameFile(named, own);
    return isOwn ? number : std::nullopt;
}

/// Opens a file without blocking. Not open on failure, with errno set.
Descriptor OpenAtOnce(const fs::path& path, int flags)
{
    Descriptor file(::open(path.c_str(), flags | O_NONBLOCK));
    if (file.IsOpen()) {
        ::fcntl(file.Number(), F_SETFL, 0);  // writes may block
    }
    return file;
}

bool IsRegular(const Descriptor& file)
{
    struct stat status {};
    return ::fstat(file.Number(), &status) == 0 && S_ISREG(status.st_mode);
}

bool FollowsLinks(OutputFile::Target target)
{
    return target == OutputFile::Target::Any || target == OutputFile::Target::AnyAwaited;
}

/// Creates a file without a name in the folder. Not open if the file system does not support that, or if the file
/// could not be given a name later through /proc.
Descriptor OpenUnnamed(const Descriptor& folder, mode_t permissions)
{
    Descriptor file(::openat(folder.Number(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, permissions));
    const bool canGetAName = file.IsOpen() && ::access(DescriptorPath(file).c_str(), F_OK) == 0;
    return canGetAName ? std::move(file) : Descriptor();
}

/// Whether the folder, not the file in it, caused the error. Includes the case where the file is a mount point.
bool IsRefusalOfFolder(const std::error_code& error)
{
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
           error == std::errc::read_only_file_system || error == std::errc::device_or_resource_busy;
}

}  // namespace

ReplacingFile::Place::Place(const fs::path& path)
    : folder(::open(path.has_parent_path() ? path.parent_path().c_str() : ".", O_PATH | O_DIRECTORY | O_CLOEXEC)),
      name(path.filename().string())
{}

bool ReplacingFile::Place::Has(const Descriptor& file) const
{
    struct stat here {
    }, there{};
    return ::fstatat(folder.Number(), name.c_str(), &here, AT_SYMLINK_NOFOLLOW) == 0 &&
           ::fstat(file.Number(), &there) == 0 && AreSameFile(here, there);
}

std::unique_ptr<OutputFile> ReplacingFile::At(const fs::path& path, Target target, std::error_code& error)
{
    std::unique_ptr<ReplacingFile> file(new ReplacingFile);
    error = target == Target::New ? file->ExpectNothing(path) : file->OpenOld(path, target);
    if (!error && file->old.IsOpen() && !IsRegular(file->old)) {
        return Direct(std::move(file->old), error);
    }
    if (!error) {
        error = file->Prepare(path, target);
    }
    return error ? nullptr : std::move(file);
}

std::error_code ReplacingFile::ExpectNothing(const fs::path& path)
{
    mustBeNew = true;
    struct stat status {};
    if (::lstat(path.c_str(), &status) == 0) {
        return std::make_error_code(std::errc::file_exists);
    }
    return errno == ENOENT ? std::error_code() : LastError();
}

/// Opens the existing file in `old`. A missing file is not an error.
std::error_code ReplacingFile::OpenOld(const fs::path& path, Target target)
{
    constexpr int flags = O_WRONLY | O_NOCTTY | O_CLOEXEC;
    if (target == Target::Regular) {
        old = OpenAtOnce(path, flags | O_NOFOLLOW);
        if (old.IsOpen() ? !IsRegular(old) : errno == ENXIO) {  // a pipe without a reader, or a socket
            return FileFault::NotRegular;
        }
        if (!old.IsOpen() && errno == ELOOP) {
            return FileFault::IsALink;
        }
    } else {
        old = OpenAtOnce(path, flags);
        if (!old.IsOpen() && errno == ENXIO && target == Target::AnyAwaited) {  // a pipe without a reader yet
            old = Descriptor(::open(path.c_str(), flags));
        }
    }
    return old.IsOpen() || errno == ENOENT ? std::error_code() : LastError();
}

std::unique_ptr<OutputFile> ReplacingFile::Direct(Descriptor descriptor, std::error_code& error)
{
    std::unique_ptr<ReplacingFile> file(new ReplacingFile);
    error = file->Buffer(std::move(descriptor));
    return error ? nullptr : std::move(file);
}

/// Hands the descriptor to the buffer. A descriptor that is not open stands for the failure in errno.
std::error_code ReplacingFile::Buffer(Descriptor file)
{
    if (file.IsOpen()) {
        buffer.reset(::fdopen(file.Number(), "wb"));
    }
    if (!buffer) {
        return LastError();
    }
    file.Release();
    return {};
}

/// Returns the path itself or, for a dangling link, the path that the link leads to. To let the system decide
/// whether a file may be created there, creates one and removes it.
fs::path ReplacingFile::PlaceOfNew(const fs::path& path, std::error_code& error)
{
    std::error_code ignored;
    if (!fs::is_symlink(path, ignored)) {
        return path;
    }
    const Descriptor made(::open(path.c_str(), O_WRONLY | O_CREAT | O_NOCTTY | O_CLOEXEC, ownerOnly));
    if (!made.IsOpen()) {
        error = LastError();
        return {};
    }
    fs::path end = fs::canonical(path, error);
    struct stat status {};
    const Place place(end);
    if (::fstat(made.Number(), &status) == 0 && status.st_size == 0 && place.Has(made)) {
        ::unlinkat(place.folder.Number(), place.name.c_str(), 0);
    }
    return end;
}

/// Opens the file that receives the bytes until they are complete.
std::error_code ReplacingFile::Prepare(const fs::path& path, Target target)
{
    std::error_code error;
    const fs::path real = old.IsOpen()           ? fs::canonical(path, error)
                          : FollowsLinks(target) ? PlaceOfNew(path, error)
                                                 : path;
    if (error && !old.IsOpen()) {
        return error;
    }
    place = std::make_unique<Place>(real);
    if (old.IsOpen() && !place->Has(old)) {
        place.reset();  // the open file has no path
    } else if (!place->folder.IsOpen()) {
        return LastError();
    }
    if (!MakeContent(old.IsOpen() || mustBeNew ? ownerOnly : newFile)) {
        return LastError();
    }
    ::flock(content.Number(), LOCK_EX | LOCK_NB);
    return Buffer(Descriptor(::fcntl(content.Number(), F_DUPFD_CLOEXEC, 0)));
}

bool ReplacingFile::MakeContent(mode_t permissions)
{
    if (place) {
        const int folder = place->folder.Number();
        HiddenName::ClearLeftovers(folder);
        content = OpenUnnamed(place->folder, permissions);
        if (content.IsOpen()) {
            return true;
        }
        hidden = HiddenName::Take(folder, [&](const char* name) {
            content = Descriptor(::openat(folder, name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, permissions));
            return content.IsOpen();
        });
        if (hidden || !old.IsOpen() || !IsRefusalOfFolder(LastError())) {
            return hidden != nullptr;
        }
        place.reset();
    }
    content = Descriptor(::memfd_create("linealis", MFD_CLOEXEC));
    return content.IsOpen();
}

std::error_code ReplacingFile::Write(std::string_view bytes)
{
    const bool whole = std::fwrite(bytes.data(), 1, bytes.size(), buffer.get()) == bytes.size();
    return whole ? std::error_code() : LastError();
}

std::error_code ReplacingFile::Commit()
{
    if (std::fclose(buffer.release()) != 0) {
        return LastError();
    }
    if (!content.IsOpen()) {
        return {};
    }
    if (!place) {
        return Overwrite();
    }
    if (old.IsOpen()) {
        if (const std::error_code error = TakeOverAttributes(old.Number(), content.Number())) {
            return error;
        }
        // Only a replaced file is at risk if the machine crashes, so a new file is not synced.
        if (::fsync(content.Number()) != 0) {
            return LastError();
        }
    }
    const std::error_code error = TakePlace();
    return old.IsOpen() && IsRefusalOfFolder(error) ? Overwrite() : error;
}

/// Moves the content to its final name. Fails in a folder where only the owner of a file may rename it (the sticky
/// bit), and where the old file is a mount point.
std::error_code ReplacingFile::TakePlace()
{
    const int folder = place->folder.Number();
    const SignalsHeld held;
    if (!hidden) {
        const std::string unnamed = DescriptorPath(content);
        hidden = HiddenName::Take(folder, [&](const char* name) {
            return ::linkat(AT_FDCWD, unnamed.c_str(), folder, name, AT_SYMLINK_FOLLOW) == 0;
        });
    }
    if (!hidden) {
        return LastError();
    }
    const char* const name = place->name.c_str();
    const int result = mustBeNew ? ::linkat(folder, hidden->Text(), folder, name, 0)
                                 : ::renameat(folder, hidden->Text(), folder, name);
    return result == 0 ? std::error_code() : LastError();
}

/// Copies the content over the old file. Allocates the space first, so that a full disk does not damage the old
/// file.
std::error_code ReplacingFile::Overwrite()
{
    struct stat before {
    }, after{};
    if (::fstat(old.Number(), &before) != 0 || ::fstat(content.Number(), &after) != 0) {
        return LastError();
    }
    const SignalsHeld held;
    if (after.st_size > 0 && ::fallocate(old.Number(), 0, 0, after.st_size) != 0 && errno != EOPNOTSUPP) {
        const std::error_code error = LastError();
        return ::ftruncate(old.Number(), before.st_size) == 0 ? error : LastError();
    }
    off_t done = 0;
    while (done < after.st_size) {
        const auto left = static_cast<std::size_t>(after.st_size - done);
        if (::sendfile(old.Number(), content.Number(), &done, left) <= 0) {
            return LastError();
        }
    }
    const bool whole = ::ftruncate(old.Number(), after.st_size) == 0 && ::fsync(old.Number()) == 0;
    return whole ? std::error_code() : LastError();
}

}  // namespace linealis::posix

namespace linealis {

std::unique_ptr<OutputFile> OutputFile::Open(const std::filesystem::path& path, Target target,
                                             std::error_code& error)
{
    error = posix::WhyNoPath(path);
    if (error) {
        return nullptr;
    }
    if (const std::optional<int> own = posix::FollowsLinks(target) ? posix::OwnDescriptor(path) : std::nullopt) {
        return posix::ReplacingFile::Direct(posix::Descriptor(::fcntl(*own, F_DUPFD_CLOEXEC, 0)), error);
    }
    return posix::ReplacingFile::At(path, target, error);
}

std::unique_ptr<OutputFile> OutputFile::OnStandardOutput(std::error_code& error)
{
    return posix::ReplacingFile::Direct(posix::Descriptor(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0)), error);
}

}  // namespace linealis
