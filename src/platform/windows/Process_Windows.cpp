#include "platform/Process.h"

#include "platform/OwnUser.h"
#include "platform/SignalPipe.h"
#include "platform/windows/LastError.h"

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <windows.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <vector>

namespace linealis {

namespace {

/// The number of EndingSignalsHeld, and whether the user has asked for the end meanwhile.
std::atomic<int> holders = 0;
std::atomic<bool> hasArrived = false;

/// Called by the system, on a thread of its own, when the user presses Ctrl+C or closes the console. The system
/// ends the program unless the handler returns TRUE.
BOOL WINAPI HoldEnd(DWORD /*event*/)
{
    hasArrived = holders > 0;
    return hasArrived ? TRUE : FALSE;
}

std::string Utf8(const wchar_t* text)
{
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
    utf8.pop_back();  // the zero at the end
    return utf8;
}

/// The encoding of the console before the program.
UINT encodingBefore = 0;

}  // namespace

void PrepareProgram(int& argc, char**& argv)
{
    static std::vector<std::string> arguments;
    static std::vector<char*> pointers;
    if (wchar_t** const wide = ::CommandLineToArgvW(::GetCommandLineW(), &argc)) {
        arguments.assign(static_cast<std::size_t>(argc), {});
        std::transform(wide, wide + argc, arguments.begin(), Utf8);
        ::LocalFree(wide);
        std::transform(arguments.begin(), arguments.end(), std::back_inserter(pointers),
                       [](std::string& argument) { return argument.data(); });
        pointers.push_back(nullptr);
        argv = pointers.data();
    }
    for (std::FILE* const stream : {stdin, stdout, stderr}) {
        ::_setmode(::_fileno(stream), _O_BINARY);
    }
    encodingBefore = ::GetConsoleOutputCP();
    if (encodingBefore != 0 && ::SetConsoleOutputCP(CP_UTF8) != 0) {
        std::atexit([] { ::SetConsoleOutputCP(encodingBefore); });
    }
}

// The system deletes unfinished files when it ends the program (OutputFile_Windows.cpp).
void EndCleanlyOnSignals()
{
    ::SetConsoleCtrlHandler(HoldEnd, TRUE);
}

struct EndingSignalsHeld::Mask {};

EndingSignalsHeld::EndingSignalsHeld()
{
    ++holders;
}

EndingSignalsHeld::~EndingSignalsHeld()
{
    if (--holders == 0 && hasArrived) {
        ::ExitProcess(STATUS_CONTROL_C_EXIT);
    }
}

bool EndingSignalsHeld::OneHasArrived() const
{
    return hasArrived;
}

int PipeOfEndingSignals()
{
    return -1;
}

/// A terminal that obeys control sequences.
bool IsTerminal(std::FILE* stream)
{
    const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(stream)));
    DWORD mode = 0;
    return ::GetConsoleMode(handle, &mode) != 0 &&
           ::SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

std::filesystem::path OwnProgram(const char* calledAs)
{
    std::array<wchar_t, 32768> path{};  // the longest path that the system has
    const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    std::error_code error;
    return length > 0 ? std::filesystem::path(path.data()) : std::filesystem::absolute(calledAs, error);
}

ProgramStart OpenInViewer(const std::filesystem::path& file)
{
    constexpr INT_PTR lastError = 32;  // of ShellExecuteW; higher results are no errors
    const bool isStarted = reinterpret_cast<INT_PTR>(::ShellExecuteW(nullptr, L"open", file.c_str(), nullptr,
                                                                     nullptr, SW_SHOWNORMAL)) > lastError;
    return {"the viewer", isStarted ? std::error_code() : windows::LastError()};
}

// Only the window needs the two below.
std::filesystem::path PrivateRuntimeFolder(const std::filesystem::path& /*temporary*/)
{
    return {};
}

bool PeerIsOwnUser(int /*socket*/)
{
    return false;
}

}  // namespace linealis
