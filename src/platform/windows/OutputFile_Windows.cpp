#include "platform/OutputFile.h"

#include "platform/plain/OutputPlace.h"
#include "platform/windows/LastError.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace linealis {

namespace {

/// Writes a file under a hidden name beside its final place, or directly if that is not a regular file.
class ReplacingFile final : public OutputFile {
public:
    ReplacingFile(HANDLE theHandle, OutputPlace thePlace, bool itMustBeNew)
        : handle(theHandle), place(std::move(thePlace)), mustBeNew(itMustBeNew)
    {
        DeleteAtEnd(true);
    }

    ~ReplacingFile() override { Close(); }

    std::error_code Write(std::string_view bytes) override
    {
        constexpr std::size_t mostAtOnce = std::size_t{1} << 30U;
        while (!bytes.empty()) {
            DWORD written = 0;
            const auto wanted = static_cast<DWORD>(std::min(bytes.size(), mostAtOnce));
            if (::WriteFile(handle, bytes.data(), wanted, &written, nullptr) == 0) {
                return windows::LastError();
            }
            bytes.remove_prefix(written);
        }
        return {};
    }

    std::error_code Commit() override
    {
        if (place.hidden.empty()) {
            return Close();
        }
        if (::FlushFileBuffers(handle) == 0 || !DeleteAtEnd(false)) {
            return windows::LastError();
        }
        if (const std::error_code error = Close()) {
            return error;
        }
        if (const DWORD old = ::GetFileAttributesW(place.path.c_str()); old != INVALID_FILE_ATTRIBUTES) {
            ::SetFileAttributesW(place.hidden.c_str(), old);
        }
        const DWORD flags = MOVEFILE_WRITE_THROUGH | (mustBeNew ? 0U : MOVEFILE_REPLACE_EXISTING);
        if (::MoveFileExW(place.hidden.c_str(), place.path.c_str(), flags) == 0) {
            const std::error_code error = windows::LastError();
            ::DeleteFileW(place.hidden.c_str());
            return error;
        }
        return {};
    }

private:
    /// The system deletes the hidden file when it is closed, however the program ends. Returns whether that was
    /// possible.
    bool DeleteAtEnd(bool isWanted)
    {
        FILE_DISPOSITION_INFO disposition{};
        disposition.DeleteFile = isWanted ? TRUE : FALSE;
        return place.hidden.empty() ||
               ::SetFileInformationByHandle(handle, FileDispositionInfo, &disposition, sizeof disposition) != 0;
    }

    std::error_code Close()
    {
        const HANDLE closing = std::exchange(handle, INVALID_HANDLE_VALUE);
        return closing == INVALID_HANDLE_VALUE || ::CloseHandle(closing) != 0 ? std::error_code()
                                                                              : windows::LastError();
    }

    HANDLE handle;
    OutputPlace place;
    bool mustBeNew;
};

/// Whether the user may write the existing file.
bool IsWritable(const std::filesystem::path& path)
{
    const HANDLE handle =
        ::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    return handle != INVALID_HANDLE_VALUE && ::CloseHandle(handle) != 0;
}

}  // namespace

std::unique_ptr<OutputFile> OutputFile::Open(const std::filesystem::path& path, Target target,
                                             std::error_code& error)
{
    const std::optional<OutputPlace> place = PlaceOf(path, target, error);
    if (!place) {
        return nullptr;
    }
    if (place->isReplaced && !IsWritable(place->path)) {
        error = windows::LastError();
        return nullptr;
    }
    const bool isDirect = place->hidden.empty();
    const HANDLE handle =
        ::CreateFileW((isDirect ? place->path : place->hidden).c_str(), GENERIC_WRITE | (isDirect ? 0U : DELETE), 0,
                      nullptr, isDirect ? OPEN_EXISTING : CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        error = windows::LastError();
        return nullptr;
    }
    return std::make_unique<ReplacingFile>(handle, *place, target == Target::New);
}

std::unique_ptr<OutputFile> OutputFile::OnStandardOutput(std::error_code& error)
{
    error.clear();
    std::fflush(stdout);
    HANDLE copy = INVALID_HANDLE_VALUE;  // closing it leaves the standard output open
    if (::DuplicateHandle(::GetCurrentProcess(), ::GetStdHandle(STD_OUTPUT_HANDLE), ::GetCurrentProcess(), &copy, 0,
                          FALSE, DUPLICATE_SAME_ACCESS) == 0) {
        error = windows::LastError();
        return nullptr;
    }
    return std::make_unique<ReplacingFile>(copy, OutputPlace{}, false);
}

}  // namespace linealis
