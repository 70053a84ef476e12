#pragma once

#include "exchange/PageFormats.h"

namespace linealis {

/// Writes the page as PNG, for the table of formats. A separate file, so that a front end that paints its own
/// pictures can do without the rasterizer.
void WriteAsPng(const DrawnPage& page, const WriteOptions& options, BinaryStream& stream, Turns& turns);

}  // namespace linealis
