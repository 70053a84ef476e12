#include "app/OwnPresets.h"

#include <algorithm>
#include <filesystem>

namespace linealis {

namespace {

namespace fs = std::filesystem;

constexpr const char* const presetFolder = "presets";
constexpr std::size_t longestName = 200;  // bytes; with its extension still a valid file name on every system

std::string FileName(std::string_view name, const PaperKind& kind)
{
    return std::string(name) + "." + std::string(kind.settingsType.extension);
}

bool IsControlCharacter(unsigned char c)
{
    constexpr unsigned char deleteCharacter = 0x7F;
    return c < ' ' || c == deleteCharacter;
}

/// Creates the folder of the file if necessary, then saves the window. Does nothing if `file` is empty.
std::error_code SaveInFolder(const FolderItem& file, const PaperWindow& window)
{
    std::error_code error;
    if (!file.IsEmpty()) {
        fs::create_directories(file.Path().parent_path(), error);
    }
    return error ? error : window.SaveSettings(file);
}

std::error_code Remove(const FolderItem& file)
{
    std::error_code error;
    if (!file.IsEmpty()) {
        fs::remove(file.Path(), error);
    }
    return error;
}

}  // namespace

std::vector<OwnPreset> OwnPresets::List(const PaperKind& kind) const
{
    std::vector<OwnPreset> presets;
    const fs::path path = folder.Child(presetFolder).Path();
    std::error_code error;
    for (fs::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().stem().string();
        std::error_code cannotTell;
        if (FindPaperKindOf(entry->path()) == &kind && NameProblem(name).IsEmpty() &&
            entry->is_regular_file(cannotTell)) {
            presets.push_back({name, FolderItem(entry->path())});
        }
    }
    std::sort(presets.begin(), presets.end(),
              [](const OwnPreset& a, const OwnPreset& b) { return a.name < b.name; });
    return presets;
}

Message OwnPresets::NameProblem(std::string_view name)
{
    if (name.find_first_not_of(' ') == std::string_view::npos) {
        return Message("A preset needs a name.");
    }
    if (name.find('/') != std::string_view::npos) {
        return Message("The name of a preset cannot have a slash in it.");
    }
    if (name.starts_with('.')) {
        return Message("The name of a preset cannot begin with a dot.");
    }
    if (std::any_of(name.begin(), name.end(), IsControlCharacter)) {
        return Message("The name of a preset cannot have control characters in it.");
    }
    return name.size() > longestName
               ? Message("The name of a preset can be %1 bytes long; this one has %2.", longestName, name.size())
               : Message();
}

FolderItem OwnPresets::File(std::string_view name, const PaperKind& kind) const
{
    return NameProblem(name).IsEmpty() ? folder.Child(presetFolder).Child(FileName(name, kind)) : FolderItem();
}

std::error_code OwnPresets::Save(std::string_view name, const PaperKind& kind, const PaperWindow& window) const
{
    return NameProblem(name).IsEmpty() ? SaveInFolder(File(name, kind), window)
                                       : std::make_error_code(std::errc::invalid_argument);
}

std::error_code OwnPresets::Delete(const OwnPreset& preset)
{
    return Remove(preset.file);
}

FolderItem OwnPresets::FileOf(const char* subfolder, const PaperKind& kind) const
{
    return folder.Child(subfolder).Child(FileName(kind.name, kind));
}

std::error_code OwnPresets::SaveDefault(const PaperKind& kind, const PaperWindow& window) const
{
    return SaveInFolder(DefaultFile(kind), window);
}

std::error_code OwnPresets::ForgetDefault(const PaperKind& kind) const
{
    return Remove(DefaultFile(kind));
}

std::error_code OwnPresets::SaveLeft(const PaperKind& kind, const PaperWindow& window) const
{
    return SaveInFolder(LeftFile(kind), window);
}

void LayOver(const OwnPreset& preset, PaperWindow& window, Platform& platform)
{
    if (const std::error_code error = window.LayOver(preset.file.OpenAsBinaryFile())) {
        platform.Note(Message("%1 could not be opened: %2", preset.name, error.message()));
    }
}

}  // namespace linealis
