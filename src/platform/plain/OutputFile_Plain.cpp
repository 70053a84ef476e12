#include "platform/OutputFile.h"

#include "platform/FileFault.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <random>
#include <string>
#include <utility>

namespace linealis {

namespace fs = std::filesystem;

namespace {

std::error_code LastFileError()
{
    return {errno, std::generic_category()};
}

/// Writes a file under a hidden name beside its final place, or directly if that is not a regular file. The
/// standard library alone cannot keep the owner of a replaced file, or force it to disk.
class RenamedFile final : public OutputFile {
public:
    /// `theHidden` is empty for a file that is written directly.
    RenamedFile(std::FILE* theFile, fs::path theHidden, fs::path thePlace, bool itMustBeNew)
        : file(theFile), hidden(std::move(theHidden)), place(std::move(thePlace)), mustBeNew(itMustBeNew)
    {}

    ~RenamedFile() override
    {
        std::error_code ignored;
        Close();
        if (!hidden.empty()) {
            fs::remove(hidden, ignored);
        }
    }

    std::error_code Write(std::string_view bytes) override
    {
        return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() ? std::error_code()
                                                                                : LastFileError();
    }

    std::error_code Commit() override
    {
        std::error_code error = Close();
        if (error || hidden.empty()) {
            return error;
        }
        if (mustBeNew && fs::exists(fs::symlink_status(place, error))) {
            return std::make_error_code(std::errc::file_exists);
        }
        if (const fs::file_status old = fs::status(place, error); fs::exists(old)) {
            fs::permissions(hidden, old.permissions(), error);
        }
        fs::rename(hidden, place, error);
        if (!error) {
            hidden.clear();
        }
        return error;
    }

private:
    /// Flushes and closes the file. Leaves the standard output open.
    std::error_code Close()
    {
        std::FILE* const closing = std::exchange(file, nullptr);
        const bool isFine =
            closing == nullptr || (closing == stdout ? std::fflush(closing) == 0 : std::fclose(closing) == 0);
        return isFine ? std::error_code() : LastFileError();
    }

    std::FILE* file;
    fs::path hidden;  ///< the name of the content until it is in its place
    fs::path place;
    bool mustBeNew;
};

/// Returns why the target does not allow what is there now, if it does not.
std::error_code Refusal(const fs::path& path, OutputFile::Target target)
{
    std::error_code missing;
    const fs::file_status status = fs::symlink_status(path, missing);
    if (!fs::exists(status)) {
        return {};
    }
    switch (target) {
    case OutputFile::Target::New:
        return std::make_error_code(std::errc::file_exists);
    case OutputFile::Target::Regular:
        if (fs::is_symlink(status)) {
            return FileFault::IsALink;
        }
        return fs::is_regular_file(status) || fs::is_directory(status) ? std::error_code() : FileFault::NotRegular;
    case OutputFile::Target::Any:
    case OutputFile::Target::AnyAwaited:
        break;
    }
    return {};
}

/// Returns where a chain of links ends, which need not exist.
fs::path EndOfLinks(fs::path path, std::error_code& error)
{
    constexpr int longestChain = 40;
    std::error_code ignored;
    for (int links = 0; fs::is_symlink(path, ignored); ++links) {
        if (links == longestChain) {
            error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
            return {};
        }
        path = path.parent_path() / fs::read_symlink(path, ignored);
    }
    return path;
}

/// Whether the user may write the existing file.
bool IsWritable(const fs::path& path)
{
    std::FILE* const file = std::fopen(path.string().c_str(), "r+b");
    return file != nullptr && std::fclose(file) == 0;
}

}  // namespace

std::unique_ptr<OutputFile> OutputFile::Open(const fs::path& path, Target target, std::error_code& error)
{
    static std::atomic<unsigned> count = 0;
    error = path.empty() ? std::make_error_code(std::errc::no_such_file_or_directory) : Refusal(path, target);
    if (path.native().find('\0') != fs::path::string_type::npos) {
        error = std::make_error_code(std::errc::invalid_argument);
    }
    if (error) {
        return nullptr;
    }
    const fs::path place = EndOfLinks(path, error);
    if (error) {
        return nullptr;
    }
    const fs::file_status status = fs::status(place, error);
    if (fs::is_directory(status)) {
        error = std::make_error_code(std::errc::is_a_directory);
    }
    if (fs::is_fifo(status) && target != Target::AnyAwaited) {  // to open it would wait for a reader
        error = std::make_error_code(std::errc::no_such_device_or_address);
    }
    if (error && status.type() != fs::file_type::not_found) {  // such as a name that is too long
        return nullptr;
    }
    const bool isReplaced = fs::is_regular_file(status);
    if (isReplaced && !IsWritable(place)) {
        error = LastFileError();
        return nullptr;
    }
    const bool isDirect = fs::exists(status) && !isReplaced;
    const fs::path hidden =
        isDirect ? fs::path()
                 : place.parent_path() /
                       (".linealis-" + std::to_string(std::random_device()()) + "-" + std::to_string(count++));
    std::FILE* const file =
        isDirect ? std::fopen(place.string().c_str(), "wb") : std::fopen(hidden.string().c_str(), "wbx");
    error = file == nullptr ? LastFileError() : std::error_code();
    return file == nullptr ? nullptr : std::make_unique<RenamedFile>(file, hidden, place, target == Target::New);
}

std::unique_ptr<OutputFile> OutputFile::OnStandardOutput(std::error_code& error)
{
    error.clear();
    return std::make_unique<RenamedFile>(stdout, fs::path(), fs::path(), false);
}

}  // namespace linealis
