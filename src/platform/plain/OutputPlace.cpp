#include "platform/plain/OutputPlace.h"

#include "platform/FileFault.h"

#include <atomic>
#include <random>
#include <string>

namespace linealis {

namespace fs = std::filesystem;

namespace {

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

/// Returns a name that no file has, in all likelihood.
fs::path HiddenName()
{
    static std::atomic<unsigned> count = 0;
    return ".linealis-" + std::to_string(std::random_device()()) + "-" + std::to_string(count++);
}

}  // namespace

std::optional<OutputPlace> PlaceOf(const fs::path& path, OutputFile::Target target, std::error_code& error)
{
    error = path.empty() ? std::make_error_code(std::errc::no_such_file_or_directory) : Refusal(path, target);
    if (path.native().find('\0') != fs::path::string_type::npos) {
        error = std::make_error_code(std::errc::invalid_argument);
    }
    if (error) {
        return std::nullopt;
    }
    OutputPlace place{EndOfLinks(path, error), {}};
    if (error) {
        return std::nullopt;
    }
    const fs::file_status status = fs::status(place.path, error);
    if (fs::is_directory(status)) {
        error = std::make_error_code(std::errc::is_a_directory);
    }
    if (fs::is_fifo(status) && target != OutputFile::Target::AnyAwaited) {  // to open it would wait for a reader
        error = std::make_error_code(std::errc::no_such_device_or_address);
    }
    if (error && status.type() != fs::file_type::not_found) {  // such as a name that is too long
        return std::nullopt;
    }
    error.clear();
    place.isReplaced = fs::is_regular_file(status);
    if (place.isReplaced || !fs::exists(status)) {
        place.hidden = place.path.parent_path() / HiddenName();
    }
    return place;
}

}  // namespace linealis
