#pragma once

#include "pipeline/document/Paper.h"
#include "pipeline/document/PaperWindow.h"

#include <filesystem>
#include <memory>
#include <span>
#include <string_view>

namespace linealis {

/// A paper kind: one row of the one table of them. Every list of kinds is made of it.
struct PaperKind {
    std::string_view name;   ///< on the command line
    std::string_view title;  ///< of its window
    std::string_view galleryTitle;
    std::string_view picture;   ///< file name of its picture in the gallery
    std::string_view window;    ///< name of its window, for its stored size, for accessibility and automation
    std::string_view menuItem;  ///< name of its entry in the Graph menu
    std::string_view menuText;
    int menuPosition;  ///< in the Graph menu, from 1
    FileType settingsType;
    Paper (*makePaper)(const Platform& platform);  ///< a paper in its opening state
    bool hasMarkers = false;                       ///< can write the lines of a marker file on its page
    bool keepsLastSettings = false;  ///< its form is saved when its window ends, and comes back from the gallery
    bool hasFixedSize = false;       ///< its window cannot be resized
    bool isCommon = false;           ///< stands in the menu of the program's icon
};

/// A window of the kind, in its opening state.
std::unique_ptr<PaperWindow> MakeWindow(const PaperKind& kind, Platform& platform);

/// All kinds, in the order of the gallery.
std::span<const PaperKind> PaperKinds();

/// The kind of that name, or none.
const PaperKind* FindPaperKind(std::string_view name);

/// The kind whose settings files have the extension, in any case and without a dot, or none.
const PaperKind* FindPaperKindByExtension(std::string_view extension);

/// The kind whose settings files end as this file's name does, in any case, or none.
const PaperKind* FindPaperKindOf(const std::filesystem::path& file);

}  // namespace linealis
