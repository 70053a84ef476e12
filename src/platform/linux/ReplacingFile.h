#pragma once

#include "platform/OutputFile.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/HiddenName.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace linealis::posix {

/// Writes into a nameless or hidden file that takes the place of the old one, or directly where there is nothing to
/// replace.
class ReplacingFile final : public OutputFile {
public:
    /// Takes ownership of the open descriptor. Returns null on failure and sets `error`.
    static std::unique_ptr<OutputFile> Direct(Descriptor descriptor, std::error_code& error);

    /// Opens the file or creates it. Returns null on failure and sets `error`.
    static std::unique_ptr<OutputFile> At(const std::filesystem::path& path, Target target, std::error_code& error);

    std::error_code Write(std::string_view bytes) override;
    std::error_code Commit() override;

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
