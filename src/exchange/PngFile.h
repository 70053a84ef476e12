#pragma once

#include "platform/BinaryStream.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace linealis {

inline constexpr std::string_view pngSignature = "\x89PNG\r\n\x1A\n";

/// What a PNG file says besides its pixels.
struct PngHead {
    std::uint32_t width = 0;  ///< pixels, from 1
    std::uint32_t height = 0;
    bool hasAlpha = false;  ///< four bytes a pixel, otherwise three
    double dotsPerInch = 0.0;
    std::string carried;  ///< a text to be carried; empty: none
};

/// Writes a PNG file (W3C Recommendation, second edition) row by row, from above.
class PngFile {
public:
    /// `theStream` is open for writing, and must outlive this.
    PngFile(BinaryStream& theStream, const PngHead& theHead);
    ~PngFile();
    PngFile(const PngFile&) = delete;
    PngFile& operator=(const PngFile&) = delete;

    /// As many bytes as the width has pixels, times three or four.
    void WriteRow(std::span<const std::uint8_t> row);
    /// After the last row.
    void Finish();

private:
    struct Compressor;

    void WriteChunk(std::string_view type, std::string_view data);
    void Feed(std::string_view bytes, bool isLast);

    BinaryStream& stream;
    std::unique_ptr<Compressor> compressor;
    std::string rowBefore;
    std::size_t bytesPerPixel;
};

/// The text that a PNG file carries; empty if it carries none, or is damaged before it.
std::string TextInPng(std::string_view png);

}  // namespace linealis
