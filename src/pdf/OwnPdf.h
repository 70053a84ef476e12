#pragma once

#include "platform/FolderItem.h"

namespace linealis {

/// Whether the file exists and is a PDF. Returns false for anything else, such as a device or a folder.
bool IsPdf(const FolderItem& file);

/// Whether the file is a PDF made by this program and not modified since. Looks at its beginning and at its last 8
/// KiB.
bool IsOwnPdf(const FolderItem& file);

}  // namespace linealis
