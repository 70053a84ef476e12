#pragma once

#include "exchange/FontFaces.h"
#include "exchange/SnappedStroke.h"
#include "exchange/StrokeShapes.h"
#include "pdf/PageContent.h"

#include <cstdint>
#include <span>
#include <vector>

namespace linealis {

/// Paints some rows of a picture of a page, with antialiasing. Paints a dashed line as a solid one, since no kind
/// of paper has dashes.
class PageRaster final : public PageSink {
public:
    /// The scale of the picture and the rows to paint.
    struct Place {
        double pageHeight;  ///< points
        double pixelsPerPoint;
        int width;     ///< of the picture, in pixels
        int firstRow;  ///< in the picture, counted from the top
        int rows;
        double thinnest = 0.0;  ///< the least width of a line, in pixels
        double left = 0.0;      ///< the position of the upper left corner of the paper in the picture, in pixels
        double top = 0.0;
        bool isSnapped = false;  ///< whether to move lines along the axes and dots to whole pixels
    };

    /// `theFaces` must outlive the object. The rows start out white, or transparent.
    PageRaster(FontFaces& theFaces, const Place& thePlace, bool isTransparent);

    bool Scale(double sx, double sy) override;
    bool Stroke(PagePath path, const PagePen& pen) override;
    bool Fill(PagePath path, const PageColor& color) override;
    bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) override;
    bool Text(const PageText& text) override;

    /// Returns a painted row, counted from the first of them: red, green, blue, and alpha of each pixel, with the
    /// colors multiplied by alpha.
    std::span<const std::uint8_t> Row(int row) const;

private:
    double WidthOf(const PagePen& pen) const;
    void PaintCovered(const PageColor& color, double opacity);
    void Render(Outline& outline, const PageColor& color, FT_SpanFunc takeSpans);

    FontFaces& faces;
    Place place;
    PixelScale scale;
    std::vector<std::uint8_t> pixels;
    std::vector<std::uint8_t> covered;  ///< the coverage of each pixel by the current stroke; 255 is full
    std::vector<std::span<std::uint8_t>> coveredSpans;  ///< the parts of `covered` that are not zero
};

}  // namespace linealis
