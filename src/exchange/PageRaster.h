#pragma once

#include "exchange/FontFaces.h"
#include "exchange/StrokeShapes.h"
#include "pdf/PageContent.h"

#include <cstdint>
#include <span>
#include <vector>

namespace linealis {

/// Some rows of a picture of a page, into which its content is painted with smooth edges. A dash pattern is painted
/// as a solid line; no kind of paper has one.
class PageRaster final : public PageSink {
public:
    /// What is painted where.
    struct Place {
        double pageHeight;  ///< points
        double pixelsPerPoint;
        int width;     ///< pixels of the picture
        int firstRow;  ///< of the picture, from above
        int rows;
        double thinnest = 0.0;  ///< pixels: a line thinner than this is painted that wide
    };

    /// `theFaces` must outlive this.
    PageRaster(FontFaces& theFaces, const Place& thePlace, bool isTransparent);

    bool Scale(double sx, double sy) override;
    bool Stroke(PagePath path, const PagePen& pen) override;
    bool Fill(PagePath path, const PageColor& color) override;
    bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) override;
    bool Text(const PageText& text) override;

    /// A row of those painted, red, green, blue and alpha a pixel, the colors multiplied by alpha.
    std::span<const std::uint8_t> Row(int row) const;

private:
    double WidthOf(const PagePen& pen) const;
    void Render(Outline& outline, const PageColor& color, FT_SpanFunc takeSpans);

    FontFaces& faces;
    Place place;
    PixelScale scale;
    std::vector<std::uint8_t> pixels;
    std::vector<std::uint8_t> covered;  ///< of each pixel, by the stroke that is being painted; 255 is all
    std::vector<std::span<std::uint8_t>> coveredSpans;  ///< where it covers some of them
};

}  // namespace linealis
