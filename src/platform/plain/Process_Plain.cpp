#include "platform/Process.h"

#include "platform/OwnUser.h"
#include "platform/SignalPipe.h"

#include <csignal>

namespace linealis {

void PrepareProgram(int& /*argc*/, char**& /*argv*/) {}

// The system ends the program. A hidden file that was being written may stay behind.
void EndCleanlyOnSignals() {}

struct EndingSignalsHeld::Mask {};

EndingSignalsHeld::EndingSignalsHeld() = default;
EndingSignalsHeld::~EndingSignalsHeld() = default;

bool EndingSignalsHeld::OneHasArrived() const
{
    return false;
}

int PipeOfEndingSignals()
{
    return -1;
}

bool IsTerminal(std::FILE* /*stream*/)
{
    return false;
}

std::filesystem::path OwnProgram(const char* calledAs)
{
    std::error_code error;
    return std::filesystem::absolute(calledAs, error);
}

ProgramStart OpenInViewer(const std::filesystem::path& /*file*/)
{
    return {"the viewer", std::make_error_code(std::errc::function_not_supported)};
}

// No folder is known to be private, so a second start does not look for the first.
std::filesystem::path PrivateRuntimeFolder(const std::filesystem::path& /*temporary*/)
{
    return {};
}

bool PeerIsOwnUser(int /*socket*/)
{
    return false;
}

}  // namespace linealis
