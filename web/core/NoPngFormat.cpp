#include "exchange/PngFormat.h"

namespace linealis {

// The page in the browser paints its own pictures.
void WriteAsPng(const DrawnPage& /*page*/, const WriteOptions& /*options*/, BinaryStream& /*stream*/,
                Turns& /*turns*/)
{
    throw PageGivenUp{"a picture of pixels is painted by the page itself"};
}

}  // namespace linealis
