#pragma once

#include "pipeline/PaperWindow.h"

#include <memory>
#include <span>
#include <string_view>

namespace linealis {

/// A paper kind: one row of the one table of them.
struct PaperKind {
    std::string_view name;   ///< on the command line
    std::string_view title;  ///< of its window
    std::string_view galleryTitle;
    std::string_view picture;   ///< file name of its picture in the gallery
    std::string_view menuItem;  ///< name of its entry in the Graph menu
    std::string_view menuText;
    int menuPosition;  ///< in the Graph menu, from 1
    FileType settingsType;
    std::unique_ptr<PaperWindow> (*make)(Platform& platform);  ///< a window in its opening state
};

/// All kinds, in the order of the gallery.
std::span<const PaperKind> PaperKinds();

/// The kind of that name, or none.
const PaperKind* FindPaperKind(std::string_view name);

/// The kind whose settings files have the extension, in any case and without a dot, or none.
const PaperKind* FindPaperKindByExtension(std::string_view extension);

}  // namespace linealis
