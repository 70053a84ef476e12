#include "exchange/PngPage.h"

#include "exchange/PageRaster.h"
#include "exchange/PngFile.h"
#include "pdf/Units.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace linealis {

namespace {

/// Converts a painted row to a row of the file: drops alpha or, if transparent, divides the colors by it.
void Convert(std::span<const std::uint8_t> painted, bool isTransparent, std::vector<std::uint8_t>& row)
{
    row.clear();
    for (std::size_t at = 0; at < painted.size(); at += 4) {
        const unsigned alpha = painted[at + 3];
        for (std::size_t channel = 0; channel < 3; ++channel) {
            const unsigned value = painted[at + channel];
            const bool asItIs = !isTransparent || alpha == 0;
            row.push_back(
                static_cast<std::uint8_t>(asItIs ? value : std::min(255U, (value * 255U + alpha / 2) / alpha)));
        }
        if (isTransparent) {
            row.push_back(static_cast<std::uint8_t>(alpha));
        }
    }
}

/// Replaces the colors of a row of the file by the nearest grays of a screen that has so many.
void ShowInGrays(int grays, bool hasAlpha, std::vector<std::uint8_t>& row)
{
    const std::size_t bytes = hasAlpha ? 4 : 3;
    const double steps = grays - 1;
    for (std::size_t at = 0; at < row.size(); at += bytes) {
        const double gray =
            0.299 * row[at] + 0.587 * row[at + 1] + 0.114 * row[at + 2];  // the luma of ITU-R BT.601
        const auto shown = static_cast<std::uint8_t>(std::lround(std::round(gray / 255.0 * steps) / steps * 255.0));
        std::fill_n(row.begin() + static_cast<std::ptrdiff_t>(at), 3, shown);
    }
}

/// The picture, and where the page is in it.
struct Canvas {
    PixelSize size;
    double dotsPerInch;  ///< of the file
    double pixelsPerPoint;
    double left = 0.0;  ///< of the page, in pixels
    double top = 0.0;
};

Canvas CanvasFor(const PaperSize& paper, const PngOptions& options)
{
    if (!options.screen) {
        return {PixelsOf(paper, options.dotsPerInch), options.dotsPerInch, options.dotsPerInch / pointsPerInch};
    }
    const Screen screen = Turned(*options.screen, paper);
    Canvas canvas{{screen.width, screen.height}, screen.dotsPerInch, screen.dotsPerInch / pointsPerInch};
    if (options.fitsScreen) {
        const auto width = static_cast<double>(paper.width), height = static_cast<double>(paper.height);
        canvas.pixelsPerPoint =
            std::min(static_cast<double>(screen.width) / width, static_cast<double>(screen.height) / height);
        canvas.left = std::floor((static_cast<double>(screen.width) - width * canvas.pixelsPerPoint) / 2.0);
        canvas.top = std::floor((static_cast<double>(screen.height) - height * canvas.pixelsPerPoint) / 2.0);
    }
    return canvas;
}

/// Paints the content into one band. A time limit replaces `turns` during painting.
void Paint(std::string_view content, PageRaster& raster, const PngOptions& options, Turns* turns)
{
    if (!options.endOfPainting) {
        ReadPage(content, raster, turns);
        return;
    }
    Turns limited([&options] {
        if (std::clock() >= *options.endOfPainting) {
            throw PageStopped{};
        }
    });
    try {
        ReadPage(content, raster, &limited);
    } catch (const PageStopped&) {
    }
}

}  // namespace

PixelSize PixelsOf(const PaperSize& paper, double dotsPerInch)
{
    const auto pixels = [&](std::int64_t points) {
        constexpr double rounding = 0.001;  // pixels: a rounding error must not add a pixel
        return std::max<std::int64_t>(
            1, static_cast<std::int64_t>(
                   std::ceil(static_cast<double>(points) / pointsPerInch * dotsPerInch - rounding)));
    };
    return {pixels(paper.width), pixels(paper.height)};
}

bool IsTooLarge(const PixelSize& size)
{
    // Compares the sides first, because their product could overflow.
    return size.width > mostPixels || size.height > mostPixels || size.width * size.height > mostPixels;
}

int HighestDotsPerInch(const PaperSize& paper)
{
    const double squareInches =
        static_cast<double>(paper.width) / pointsPerInch * (static_cast<double>(paper.height) / pointsPerInch);
    int highest = std::max(1, static_cast<int>(std::sqrt(static_cast<double>(mostPixels) / squareInches)));
    const auto fits = [&](int dotsPerInch) {
        const PixelSize size = PixelsOf(paper, dotsPerInch);
        return size.width * size.height <= mostPixels;
    };
    // The estimate can be slightly too high, because PixelsOf rounds up.
    while (highest > 1 && !fits(highest)) {
        --highest;
    }
    return highest;
}

void WritePng(const PaperSize& paper, std::string_view content, const PngOptions& options, BinaryStream& stream,
              Turns* turns)
{
    constexpr std::int64_t pixelsAtATime = 4'000'000;
    const Canvas canvas = CanvasFor(paper, options);
    const auto width = static_cast<int>(canvas.size.width), height = static_cast<int>(canvas.size.height);
    const int grays = options.screen ? options.screen->grays : 0;
    // Each band reads the whole content again, so few large bands are faster. One takes about 20 MB.
    const int band = static_cast<int>(std::clamp<std::int64_t>(pixelsAtATime / width, 1, height));
    PngFile file(stream, {static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height),
                          options.isTransparent, canvas.dotsPerInch, options.carried});
    FontFaces faces;
    std::vector<std::uint8_t> converted;
    for (int first = 0; first < height; first += band) {
        const int rows = std::min(band, height - first);
        PageRaster raster(faces,
                          {.pageHeight = static_cast<double>(paper.height),
                           .pixelsPerPoint = canvas.pixelsPerPoint,
                           .width = width,
                           .firstRow = first,
                           .rows = rows,
                           .thinnest = options.thinnest,
                           .left = canvas.left,
                           .top = canvas.top,
                           .isSnapped = options.screen.has_value()},
                          options.isTransparent);
        Paint(content, raster, options, turns);
        for (int row = 0; row < rows; ++row) {
            Convert(raster.Row(row), options.isTransparent, converted);
            if (grays > 1) {
                ShowInGrays(grays, options.isTransparent, converted);
            }
            file.WriteRow(converted);
            if (turns != nullptr) {
                turns->RuntimeBackgroundTask(Turns::linesPerYield);
            }
        }
    }
    file.Finish();
}

}  // namespace linealis
