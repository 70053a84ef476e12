#include "platform/posix/InputFile.h"

#include "platform/FileFault.h"
#include "platform/posix/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace linealis::posix {

namespace {

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
    std::FILE* const handle = ::fdopen(file.Number(), "rb");
    if (handle == nullptr) {
        error = LastError();
    } else {
        file.Release();
    }
    return handle;
}

std::FILE* OpenMemory(std::string_view bytes, std::error_code& error)
{
    // What is opened for reading is not written to.
    std::FILE* const handle = ::fmemopen(const_cast<char*>(bytes.data()), bytes.size(), "r");
    if (handle == nullptr) {
        error = LastError();
    }
    return handle;
}

}  // namespace linealis::posix
