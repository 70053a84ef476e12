#pragma once

#include "platform/linux/Descriptor.h"
#include "platform/linux/HiddenName.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace linealis::posix {

/// A file open for writing. A file that replaces another, or is new, appears under its name only after Commit().
class OutputFile {
public:
    enum class Target {
        Any,  ///< replaces an existing file; follows links; writes directly to anything that is not a regular file
        AnyAwaited,  ///< like Any, but waits for the reader of a pipe
        Regular,     ///< replaces a regular file; refuses an existing link, pipe, or device
        New          ///< the name must be free; only this user may open the new file
    };

    /// Returns null on failure and sets `error`.
    static std::unique_ptr<OutputFile> Open(const std::filesystem::path& path, Target target,
                                            std::error_code& error);
    static std::unique_ptr<OutputFile> OnStandardOutput(std::error_code& error);

    std::error_code Write(std::string_view bytes);

    /// Finishes the file: flushes the buffer and moves the content into place. No write may follow.
    std::error_code Commit();

private:
    struct CloseBuffer {
        void operator()(std::FILE* handle) const { std::fclose(handle); }
    };

    /// A folder and a name in it. The open descriptor keeps working if the folder is moved.
    struct Place {
        explicit Place(const std::filesystem::path& path);
        bool Has(const Descriptor& file) const;

        Descriptor folder;
        std::string name;
    };

    static std::unique_ptr<OutputFile> Direct(Descriptor descriptor, std::error_code& error);
    static std::filesystem::path PlaceOfNew(const std::filesystem::path& path, std::error_code& error);
    std::error_code ExpectNothing(const std::filesystem::path& path);
    std::error_code OpenOld(const std::filesystem::path& path, Target target);
    std::error_code Prepare(const std::filesystem::path& path, Target target);
    bool MakeContent(mode_t permissions);
    std::error_code Buffer(Descriptor file);
    std::error_code TakePlace();
    std::error_code Overwrite();

    std::unique_ptr<Place> place;        ///< where the content goes; null: it overwrites the old file
    Descriptor old;                      ///< the file to replace; not open: there is none
    Descriptor content;                  ///< the new file; not open: written directly
    std::unique_ptr<HiddenName> hidden;  ///< the name of the content; null as long as it has none
    std::unique_ptr<std::FILE, CloseBuffer> buffer;
    bool mustBeNew = false;
};

}  // namespace linealis::posix
