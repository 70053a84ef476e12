#include "platform/OutputFile.h"

#include "platform/plain/OutputPlace.h"

#include <cerrno>
#include <cstdio>
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

/// Whether the user may write the existing file.
bool IsWritable(const fs::path& path)
{
    std::FILE* const file = std::fopen(path.string().c_str(), "r+b");
    return file != nullptr && std::fclose(file) == 0;
}

}  // namespace

std::unique_ptr<OutputFile> OutputFile::Open(const fs::path& path, Target target, std::error_code& error)
{
    const std::optional<OutputPlace> place = PlaceOf(path, target, error);
    if (!place) {
        return nullptr;
    }
    if (place->isReplaced && !IsWritable(place->path)) {
        error = LastFileError();
        return nullptr;
    }
    std::FILE* const file = place->hidden.empty() ? std::fopen(place->path.string().c_str(), "wb")
                                                  : std::fopen(place->hidden.string().c_str(), "wbx");
    error = file == nullptr ? LastFileError() : std::error_code();
    return file == nullptr ? nullptr
                           : std::make_unique<RenamedFile>(file, place->hidden, place->path, target == Target::New);
}

std::unique_ptr<OutputFile> OutputFile::OnStandardOutput(std::error_code& error)
{
    error.clear();
    return std::make_unique<RenamedFile>(stdout, fs::path(), fs::path(), false);
}

}  // namespace linealis
