#pragma once

#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>

namespace linealis {

/// A file open for writing. A file that replaces another, or is new, appears under its name only after Commit().
class OutputFile {
public:
    enum class Target {
        Any,  ///< replaces an existing file; follows links; writes directly to anything that is not a regular file
        AnyAwaited,  ///< like Any, but waits for the reader of a pipe
        Regular,     ///< replaces a regular file; refuses an existing link, pipe, or device
        New          ///< the name must be free; only this user may open the new file
    };

    OutputFile() = default;
    virtual ~OutputFile() = default;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Returns null on failure and sets `error`.
    static std::unique_ptr<OutputFile> Open(const std::filesystem::path& path, Target target,
                                            std::error_code& error);
    static std::unique_ptr<OutputFile> OnStandardOutput(std::error_code& error);

    virtual std::error_code Write(std::string_view bytes) = 0;

    /// Finishes the file: flushes the buffer and moves the content into place. No write may follow.
    virtual std::error_code Commit() = 0;
};

}  // namespace linealis
