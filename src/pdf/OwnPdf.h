#pragma once

#include "platform/FolderItem.h"

namespace linealis {

/// Whether the file exists and is a PDF that this program made. Anything else, a device or a folder too, is not.
bool IsOwnPdf(const FolderItem& file);

}  // namespace linealis
