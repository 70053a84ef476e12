#pragma once

#include "exchange/Devices.h"
#include "pipeline/page/PageFrame.h"
#include "platform/BinaryStream.h"
#include "platform/Turns.h"

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace linealis {

/// How to make a picture of a page.
struct PngOptions {
    double dotsPerInch = 300.0;
    bool isTransparent = false;  ///< without the white of the paper
    double thinnest = 0.0;       ///< the least width of a line, in pixels
    std::string carried = {};    ///< a text for the file to carry; empty for none
    /// When std::clock, the processor time of the whole process, reaches this value, painting stops, and the
    /// picture shows what has been painted so far.
    std::optional<std::clock_t> endOfPainting = {};
    /// A screen that the picture fills to the pixel, at its resolution instead of dotsPerInch. Lines along its axes
    /// take whole pixels.
    std::optional<Screen> screen = {};
    bool fitsScreen = false;  ///< whether the page is scaled to the screen, in its middle, instead of at true size
};

struct PixelSize {
    std::int64_t width;
    std::int64_t height;
};

/// Returns the size of a picture of the paper, at least one pixel each way. A pixel that the paper covers partly
/// counts.
PixelSize PixelsOf(const PaperSize& paper, double dotsPerInch);

/// The most pixels in a picture.
inline constexpr std::int64_t mostPixels = 500'000'000;

/// Whether a picture of that size has more than mostPixels.
bool IsTooLarge(const PixelSize& size);

/// Returns the highest whole number of dots per inch, at least 1, at which a picture of the paper has at most
/// mostPixels.
int HighestDotsPerInch(const PaperSize& paper);

/// Paints the page and writes it as a PNG file to an open stream, which the caller closes. The caller must make
/// sure that the picture has at most mostPixels. Paints the picture in bands, so that memory stays small at any
/// size. Exceptions of `turns` pass through.
void WritePng(const PaperSize& paper, std::string_view content, const PngOptions& options, BinaryStream& stream,
              Turns* turns = nullptr);

}  // namespace linealis
