#include "platform/Process.h"

#include "platform/linux/Descriptor.h"
#include "platform/linux/HiddenName.h"

#include <spawn.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <sstream>

namespace linealis {

namespace {

constexpr std::array endingSignals = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGXCPU};

/// Removes unfinished files, then raises the signal again. SA_RESETHAND has already restored the default action,
/// which takes effect when this handler returns.
extern "C" void RemoveNamesAndEnd(int signal)
{
    posix::HiddenName::RemoveAll();
    ::raise(signal);
}

/// Installs the handler for a signal, unless the parent process set the signal to be ignored.
void EndCleanlyOn(int signal)
{
    struct sigaction before {};
    if (::sigaction(signal, nullptr, &before) != 0 || before.sa_handler != SIG_DFL) {
        return;
    }
    struct sigaction action {};
    action.sa_handler = RemoveNamesAndEnd;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    ::sigaction(signal, &action, nullptr);
}

}  // namespace

void PrepareProgram(int& /*argc*/, char**& /*argv*/) {}

void EndCleanlyOnSignals()
{
    for (const int signal : endingSignals) {
        EndCleanlyOn(signal);
    }
    ::signal(SIGXFSZ, SIG_IGN);
}

struct EndingSignalsHeld::Mask {
    sigset_t signals{};
};

EndingSignalsHeld::EndingSignalsHeld() : before(std::make_unique<Mask>())
{
    sigset_t held;
    ::sigemptyset(&held);
    for (const int signal : endingSignals) {
        ::sigaddset(&held, signal);
    }
    ::pthread_sigmask(SIG_BLOCK, &held, &before->signals);
}

EndingSignalsHeld::~EndingSignalsHeld()
{
    ::pthread_sigmask(SIG_SETMASK, &before->signals, nullptr);
}

bool EndingSignalsHeld::OneHasArrived() const
{
    sigset_t arrived;
    ::sigpending(&arrived);
    return std::any_of(endingSignals.begin(), endingSignals.end(),
                       [&](int signal) { return ::sigismember(&arrived, signal) == 1; });
}

bool IsTerminal(std::FILE* stream)
{
    return ::isatty(::fileno(stream)) == 1;
}

std::filesystem::path OwnProgram(const char* calledAs)
{
    namespace fs = std::filesystem;
    std::error_code error;
    if (fs::path own = fs::read_symlink("/proc/self/exe", error); !error) {
        return own;
    }
    // Without /proc, search as the shell does: by the path in argv[0], or in the folders of PATH.
    const char* const path = std::getenv("PATH");
    std::istringstream folders(path == nullptr || fs::path(calledAs).has_parent_path() ? "" : path);
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (fs::path found = fs::path(folder) / calledAs; fs::exists(found, error)) {
            return found;
        }
    }
    return fs::absolute(calledAs);
}

ProgramStart OpenInViewer(const std::filesystem::path& file)
{
    static constexpr const char* viewer = "xdg-open";
    std::string program = viewer, argument = file.string();
    std::array<char*, 3> arguments = {program.data(), argument.data(), nullptr};
    posix_spawnattr_t attributes;
    ::posix_spawnattr_init(&attributes);
    sigset_t asEver;  // the other program must not inherit the ignored signal
    ::sigemptyset(&asEver);
    ::sigaddset(&asEver, SIGXFSZ);
    ::posix_spawnattr_setsigdefault(&attributes, &asEver);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    pid_t process = 0;
    const int error = ::posix_spawnp(&process, program.c_str(), nullptr, &attributes, arguments.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    return {viewer, {error, std::generic_category()}};
}

}  // namespace linealis
