#pragma once

#include "platform/FolderItem.h"

namespace linealis {

/// Whether the file exists and is a PDF. Anything else, a device or a folder too, is not.
bool IsPdf(const FolderItem& file);

/// Whether it is one that this program made, and nobody has changed since.
bool IsOwnPdf(const FolderItem& file);

}  // namespace linealis
