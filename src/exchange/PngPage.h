#pragma once

#include "pipeline/page/PageFrame.h"
#include "platform/BinaryStream.h"
#include "platform/Turns.h"

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace linealis {

/// How a picture of a page is made.
struct PngOptions {
    double dotsPerInch = 300.0;
    bool isTransparent = false;  ///< only what the page paints is there; otherwise the paper is white
    double thinnest = 0.0;       ///< pixels: a line thinner than this is painted that wide
    std::string carried = {};    ///< a text that it carries; empty: none
    /// After so much processor time of the whole process the picture has what is painted by then.
    std::optional<std::clock_t> endOfPainting = {};
};

struct PixelSize {
    std::int64_t width;
    std::int64_t height;
};

/// The pixels of a picture of the paper; at least one each way. One that the paper covers in part counts.
PixelSize PixelsOf(const PaperSize& paper, double dotsPerInch);

/// The most pixels that a picture may have.
inline constexpr std::int64_t mostPixels = 500'000'000;

/// The highest whole number of dots per inch, from 1, with which a picture of the paper has no more than
/// mostPixels.
int HighestDotsPerInch(const PaperSize& paper);

/// Paints the page and writes it to an open stream as a PNG file, which may not have more than mostPixels. Needs
/// little memory whatever its size. Closing the stream is up to the caller. What `turns` throws passes through.
void WritePng(const PaperSize& paper, std::string_view content, const PngOptions& options, BinaryStream& stream,
              Turns* turns = nullptr);

}  // namespace linealis
