#include "platform/linux/HiddenName.h"

#include "platform/linux/Descriptor.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <atomic>
#include <charconv>
#include <csignal>
#include <string_view>

namespace linealis::posix {

namespace {

constexpr std::string_view prefix = ".linealis-";

/// All names in use, for the signal handler. A name that finds no free slot here is removed by a later process.
constexpr std::size_t mostAtATime = 64;
std::array<std::atomic<const HiddenName*>, mostAtATime> standing{};

std::string NextName()
{
    static std::atomic<unsigned> count = 0;
    return std::string(prefix) + std::to_string(::getpid()) + "-" + std::to_string(count++);
}

/// Returns the ID of the process that created the name, or 0 if it is not a hidden name.
pid_t MakerOf(std::string_view name)
{
    if (!name.starts_with(prefix)) {
        return 0;
    }
    name.remove_prefix(prefix.size());
    pid_t maker = 0;
    const char* const end = name.data() + name.size();
    const auto result = std::from_chars(name.data(), end, maker);
    return result.ec == std::errc() && result.ptr != end && *result.ptr == '-' ? maker : 0;
}

bool IsGone(pid_t process)
{
    return ::kill(process, 0) != 0 && errno == ESRCH;
}

/// Whether this is a regular file of this user that nobody is writing. The writer may be a process in another
/// container, whose ID means nothing here, so the lock decides.
bool IsAbandoned(int folder, const char* name)
{
    const Descriptor file(::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    return file.IsOpen() && ::fstat(file.Number(), &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_uid == ::geteuid() && ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0;
}

/// Whether the folder differs from the folder of the last call.
bool IsAnother(int folder)
{
    static std::atomic<ino_t> last = 0;
    struct stat status {};
    return ::fstat(folder, &status) == 0 && last.exchange(status.st_ino) != status.st_ino;
}

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

}  // namespace

HiddenName::HiddenName(int theFolder, std::string theText) : folder(theFolder), text(std::move(theText))
{
    for (std::atomic<const HiddenName*>& slot : standing) {
        const HiddenName* none = nullptr;
        if (slot.compare_exchange_strong(none, this)) {
            return;
        }
    }
}

HiddenName::~HiddenName()
{
    if (taken) {
        ::unlinkat(folder, Text(), 0);
    }
    for (std::atomic<const HiddenName*>& slot : standing) {
        const HiddenName* self = this;
        slot.compare_exchange_strong(self, nullptr);
    }
}

std::unique_ptr<HiddenName> HiddenName::Take(int folder, const std::function<bool(const char*)>& make)
{
    constexpr int attempts = 1000;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        std::unique_ptr<HiddenName> name(new HiddenName(folder, NextName()));
        name->taken = make(name->Text());
        if (name->taken) {
            return name;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return nullptr;
}

void HiddenName::RemoveAll()
{
    for (const std::atomic<const HiddenName*>& slot : standing) {
        if (const HiddenName* const name = slot) {
            ::unlinkat(name->folder, name->Text(), 0);
        }
    }
}

void HiddenName::ClearLeftovers(int folder)
{
    if (!IsAnother(folder)) {
        return;
    }
    Descriptor listed(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, CloseFolder> entries(listed.IsOpen() ? ::fdopendir(listed.Number()) : nullptr);
    if (!entries) {
        return;
    }
    listed.Release();  // closedir closes it
    while (const dirent* const entry = ::readdir(entries.get())) {
        const pid_t maker = MakerOf(entry->d_name);
        if (maker > 0 && IsGone(maker) && IsAbandoned(folder, entry->d_name)) {
            ::unlinkat(folder, entry->d_name, 0);
        }
    }
}

}  // namespace linealis::posix
