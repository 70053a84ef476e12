#pragma once

#include "platform/FolderItem.h"
#include "platform/Platform.h"

#include <cstdint>

namespace linealis {

/// The preferences that the program keeps between runs.
struct Preferences {
    bool noUpdateCheck = false;
    std::int64_t lastUpdateCheckVersion = 0;  ///< the skipped version, 0 if none; the file stores 32 bits of it
};

/// Reads the preferences. Returns the initial values if the file does not exist or cannot be read. The missing
/// values of a short file read as 0.
Preferences ReadPrefs(const FolderItem& file);

/// Replaces the file. Yields to `platform` from time to time. Does nothing if `file` is empty, and ignores a
/// failure.
void WritePrefs(const Preferences& preferences, const FolderItem& file, Platform& platform);

}  // namespace linealis
