#pragma once

#include "platform/BinaryStream.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace linealis {

/// The properties of a PNG file other than its pixels.
struct PngHead {
    std::uint32_t width = 0;  ///< pixels, from 1
    std::uint32_t height = 0;
    bool hasAlpha = false;  ///< four bytes per pixel instead of three
    double dotsPerInch = 0.0;
    std::string carried;  ///< UTF-8 text to embed; empty for none
};

/// Writes a PNG file row by row from the top, with 8 bits per channel. Write errors are in the stream; check them
/// after Finish. Throws std::bad_alloc if there is not enough memory.
class PngFile {
public:
    /// Writes everything before the pixels. The stream must be open for writing and outlive the object.
    PngFile(BinaryStream& stream, const PngHead& head);
    ~PngFile();
    PngFile(const PngFile&) = delete;
    PngFile& operator=(const PngFile&) = delete;

    /// Writes the next row: red, green, blue and, if there is alpha, alpha of each pixel, with colors that are not
    /// multiplied by alpha.
    void WriteRow(std::span<const std::uint8_t> row);
    /// Ends the file. Call once, after the last row. Does not close the stream.
    void Finish();

private:
    struct Writer;
    std::unique_ptr<Writer> writer;
};

}  // namespace linealis
