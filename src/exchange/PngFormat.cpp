#include "exchange/PngFormat.h"

#include "exchange/PngPage.h"

namespace linealis {

void WriteAsPng(const DrawnPage& page, const WriteOptions& options, BinaryStream& stream, Turns& turns)
{
    WritePng({page.frame.paperWidth, page.frame.paperHeight}, page.content,
             {.dotsPerInch = options.dotsPerInch,
              .isTransparent = options.isTransparent,
              .carried = options.carried,
              .screen = options.screen,
              .fitsScreen = options.fitsScreen},
             stream, &turns);
}

}  // namespace linealis
