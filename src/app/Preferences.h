#pragma once

#include "platform/FolderItem.h"
#include "platform/Platform.h"

#include <cstdint>

namespace linealis {

/// What the program keeps between runs, but for the last settings of the graph paper.
struct Preferences {
    bool noUpdateCheck = false;
    std::int64_t lastUpdateCheckVersion = 0;  ///< the version that the user has skipped; 32 bits of it are kept
};

/// The initial values if there is no file. A shorter file reads as zeros at its end.
Preferences ReadPrefs(const FolderItem& file);

/// Writes the file anew. Nothing happens if that cannot be done.
void WritePrefs(const Preferences& preferences, const FolderItem& file, Platform& platform);

}  // namespace linealis
