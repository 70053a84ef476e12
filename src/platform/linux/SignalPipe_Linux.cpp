#include "platform/SignalPipe.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace linealis {

namespace {

std::array<int, 2> ends = {-1, -1};

extern "C" void WriteToPipe(int /*signal*/)
{
    const int error = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written =
        ::write(ends[1], &byte, 1);  // if the pipe is full, the reader wakes up anyway
    errno = error;
}

void Catch(int signal)
{
    struct sigaction before {};
    if (::sigaction(signal, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) {
        return;
    }
    struct sigaction action {};
    action.sa_handler = WriteToPipe;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

}  // namespace

int PipeOfEndingSignals()
{
    if (::pipe(ends.data()) != 0) {
        return -1;
    }
    for (const int end : ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        Catch(signal);
    }
    return ends[0];
}

}  // namespace linealis
