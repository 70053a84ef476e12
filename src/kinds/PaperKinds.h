#pragma once

#include "pipeline/document/Paper.h"
#include "pipeline/document/PaperWindow.h"

#include <filesystem>
#include <memory>
#include <span>
#include <string_view>

namespace linealis {

/// One row of the table of paper kinds. All lists of kinds, such as the gallery, the Graph menu, and the command
/// line, come from this table.
struct PaperKind {
    std::string_view name;   ///< its unique name, for the command line
    std::string_view title;  ///< the title of its window
    std::string_view galleryTitle;
    std::string_view picture;   ///< the file name of its picture in the gallery
    std::string_view window;    ///< the name of its window: keys the stored size; for accessibility and automation
    std::string_view menuItem;  ///< the name of its entry in the Graph menu
    std::string_view menuText;
    int menuPosition;  ///< the place in the Graph menu, from 1
    FileType settingsType;
    Paper (*makePaper)(const Platform& platform);  ///< creates a paper in its opening state
    bool hasMarkers = false;                       ///< can print the lines of a marker file on its page
    bool keepsLastSettings = false;  ///< its form is saved when the window closes, and restored by the gallery
    bool hasFixedSize = false;       ///< the window cannot be resized
    bool isCommon = false;           ///< appears in the menu of the program's icon
};

/// Creates a window of the kind in its opening state. `platform` must outlive the window.
std::unique_ptr<PaperWindow> MakeWindow(const PaperKind& kind, Platform& platform);

/// Returns all kinds in the order of the gallery.
std::span<const PaperKind> PaperKinds();

/// Returns the kind with that name, or null.
const PaperKind* FindPaperKind(std::string_view name);

/// Returns the kind whose settings files have the extension, given in any case and without a dot, or null.
const PaperKind* FindPaperKindByExtension(std::string_view extension);

/// Returns the kind whose settings files have the extension of this file, in any case, or null. Does not open the
/// file.
const PaperKind* FindPaperKindOf(const std::filesystem::path& file);

}  // namespace linealis
