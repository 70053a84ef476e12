#include "platform/InputFile.h"

#include "platform/FileFault.h"
#include "platform/linux/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <utility>

namespace linealis {

namespace {

using posix::Descriptor;
using posix::LastError;

std::error_code WhyNotRead(const Descriptor& file)
{
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) {
        return LastError();
    }
    if (S_ISDIR(status.st_mode)) {
        return std::make_error_code(std::errc::is_a_directory);
    }
    return S_ISREG(status.st_mode) ? std::error_code() : FileFault::NotRegular;
}

std::FILE* Opened(Descriptor file, std::error_code& error)
{
    std::FILE* const handle = file.IsOpen() ? ::fdopen(file.Number(), "rb") : nullptr;
    if (handle == nullptr) {
        error = LastError();
    } else {
        file.Release();
    }
    return handle;
}

}  // namespace

std::FILE* OpenForReading(const std::filesystem::path& path, std::error_code& error)
{
    if (path.native().find('\0') != std::string::npos) {
        error = std::make_error_code(std::errc::invalid_argument);
        return nullptr;
    }
    Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    error = WhyNotRead(file);
    if (error) {
        return nullptr;
    }
    return Opened(std::move(file), error);
}

std::FILE* OpenStandardInput(std::error_code& error)
{
    return Opened(Descriptor(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)), error);
}

}  // namespace linealis
