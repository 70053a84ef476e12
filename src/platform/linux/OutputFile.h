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

/// A file open for writing. One that takes a place among files is seen there only when Commit() has put it there.
class OutputFile {
public:
    enum class Target {
        Any,         ///< what is there is replaced; a link is followed, what is no regular file is written directly
        AnyAwaited,  ///< the same, but for a pipe, whose reader is waited for
        Regular,     ///< a regular file is replaced; a link, pipe or device that is there is refused
        New          ///< nothing may be there; only this user may open what comes there
    };

    /// Nothing on failure, and `error` tells why.
    static std::unique_ptr<OutputFile> Open(const std::filesystem::path& path, Target target,
                                            std::error_code& error);
    static std::unique_ptr<OutputFile> OnStandardOutput(std::error_code& error);

    std::error_code Write(std::string_view bytes);

    /// The last call, after which nothing is written.
    std::error_code Commit();

private:
    struct CloseBuffer {
        void operator()(std::FILE* handle) const { std::fclose(handle); }
    };

    /// A folder, held open against its being moved, and a name in it.
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

    std::unique_ptr<Place> place;        ///< where the content goes; nothing if it overwrites the old file
    Descriptor old;                      ///< what is to be replaced; not open if nothing is
    Descriptor content;                  ///< what is to be put in its place; not open if written directly
    std::unique_ptr<HiddenName> hidden;  ///< the content's name; none as long as it has no name
    std::unique_ptr<std::FILE, CloseBuffer> buffer;
    bool mustBeNew = false;
};

}  // namespace linealis::posix
