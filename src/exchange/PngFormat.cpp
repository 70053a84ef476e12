#include "exchange/PngFormat.h"

#include "exchange/PngPage.h"

namespace linealis {

void WriteAsPng(const DrawnPage& page, const WriteOptions& options, BinaryStream& stream, Turns& turns)
{
    WritePng({page.frame.paperWidth, page.frame.paperHeight}, page.content,
             {options.dotsPerInch, options.isTransparent, 0.0, options.carried}, stream, &turns);
}

}  // namespace linealis
