#include "exchange/PageRaster.h"

#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace linealis {

namespace {

constexpr std::size_t bytesPerPixel = 4;

std::array<std::uint8_t, 3> BytesOf(const PageColor& color)
{
    const auto byte = [](double channel) {
        return static_cast<std::uint8_t>(std::lround(std::clamp(channel, 0.0, 1.0) * 255.0));
    };
    return {byte(color.red), byte(color.green), byte(color.blue)};
}

/// The context of the span callbacks of FreeType.
struct Brush {
    std::vector<std::uint8_t>& pixels;
    std::vector<std::uint8_t>& covered;
    std::vector<std::span<std::uint8_t>>& spans;
    int width;
    int firstRow;
    int rows;
    std::array<std::uint8_t, 3> color;
};

constexpr unsigned opaque = 255;

/// Returns a channel of a pixel after painting over it with that coverage, from 0 to 255.
std::uint8_t Mixed(unsigned under, unsigned over, unsigned coverage)
{
    return static_cast<std::uint8_t>((over * coverage + under * (opaque - coverage) + opaque / 2) / opaque);
}

/// Paints over a pixel. The result has colors multiplied by alpha if the pixel had.
void PaintPixel(std::uint8_t* pixel, const std::array<std::uint8_t, 3>& color, unsigned coverage)
{
    for (std::size_t channel = 0; channel < color.size(); ++channel) {
        pixel[channel] = Mixed(pixel[channel], color[channel], coverage);
    }
    pixel[color.size()] = Mixed(pixel[color.size()], opaque, coverage);
}

/// Clips spans of row `y` to the brush. Calls `take` for each with the index of its first pixel, the number of its
/// pixels, and the coverage.
template <typename Take>
void ForSpans(const Brush& brush, int y, std::span<const FT_Span> spans, Take take)
{
    const int row = y - brush.firstRow;
    if (row < 0 || row >= brush.rows) {
        return;
    }
    for (const FT_Span& span : spans) {
        const int begin = std::max<int>(span.x, 0), end = std::min<int>(span.x + span.len, brush.width);
        if (begin < end) {
            take(static_cast<std::size_t>(row) * static_cast<std::size_t>(brush.width) +
                     static_cast<std::size_t>(begin),
                 static_cast<std::size_t>(end - begin), span.coverage);
        }
    }
}

/// Span callback of FreeType that paints at once.
void PaintSpans(int y, int count, const FT_Span* spans, void* user)
{
    const Brush& brush = *static_cast<const Brush*>(user);
    ForSpans(brush, y, {spans, static_cast<std::size_t>(count)},
             [&brush](std::size_t first, std::size_t length, unsigned char coverage) {
                 for (std::size_t at = first; at < first + length; ++at) {
                     PaintPixel(&brush.pixels[at * bytesPerPixel], brush.color, coverage);
                 }
             });
}

/// Span callback of FreeType that only records the coverage. Where shapes overlap, the greatest coverage counts.
void CoverSpans(int y, int count, const FT_Span* spans, void* user)
{
    const Brush& brush = *static_cast<const Brush*>(user);
    ForSpans(brush, y, {spans, static_cast<std::size_t>(count)},
             [&brush](std::size_t first, std::size_t length, unsigned char coverage) {
                 for (std::size_t at = first; at < first + length; ++at) {
                     brush.covered[at] = std::max<std::uint8_t>(brush.covered[at], coverage);
                 }
                 brush.spans.push_back(std::span(brush.covered).subspan(first, length));
             });
}

}  // namespace

PageRaster::PageRaster(FontFaces& theFaces, const Place& thePlace, bool isTransparent)
    : faces(theFaces), place(thePlace), scale{place.pageHeight, place.pixelsPerPoint, place.left, place.top},
      pixels(static_cast<std::size_t>(place.width) * static_cast<std::size_t>(place.rows) * bytesPerPixel,
             isTransparent ? 0 : 255),
      covered(pixels.size() / bytesPerPixel)
{}

bool PageRaster::Scale(double sx, double sy)
{
    scale.x = sx;
    scale.y = sy;
    return true;
}

/// Returns the width of a line in units of the content. A pen of width 0 gives at least one pixel.
double PageRaster::WidthOf(const PagePen& pen) const
{
    const double pixelsPerUnit = scale.PixelsPerUnit();
    const double thinnest = pen.width <= 0.0 ? std::max(place.thinnest, 1.0) : place.thinnest;
    return pixelsPerUnit > 0.0 ? std::max(pen.width, thinnest / pixelsPerUnit) : pen.width;
}

bool PageRaster::Stroke(PagePath path, const PagePen& pen)
{
    if (place.isSnapped) {
        if (SnappedStroke snapped = Snapped(path, pen, scale, faces.Library()); !snapped.shapes.empty()) {
            for (Outline& shape : snapped.shapes) {
                Render(shape, pen.color, CoverSpans);
            }
            PaintCovered(pen.color, snapped.opacity);
            return true;
        }
    }
    // The shapes of a stroke overlap. Painting them one by one would blend some pixels twice, so first collect the
    // coverage of all, then paint each pixel once. A single shape is painted directly.
    std::vector<Outline> shapes = ShapesOfStroke(path, pen, WidthOf(pen), scale, faces.Library());
    if (shapes.size() == 1) {
        Render(shapes.front(), pen.color, PaintSpans);
        return true;
    }
    for (Outline& shape : shapes) {
        Render(shape, pen.color, CoverSpans);
    }
    PaintCovered(pen.color, 1.0);
    return true;
}

/// Paints the pixels that CoverSpans has collected, once each.
void PageRaster::PaintCovered(const PageColor& color, double opacity)
{
    const std::array<std::uint8_t, 3> bytes = BytesOf(color);
    for (const std::span<std::uint8_t> span : coveredSpans) {
        auto* pixel = &pixels[static_cast<std::size_t>(span.data() - covered.data()) * bytesPerPixel];
        // Resets the coverage, so that a pixel in several spans is painted only once.
        for (std::uint8_t& coverage : span) {
            PaintPixel(pixel, bytes,
                       static_cast<unsigned>(std::lround(std::exchange(coverage, std::uint8_t{0}) * opacity)));
            pixel += bytesPerPixel;
        }
    }
    coveredSpans.clear();
}

/// Leaves out a path with more points than an outline can have. A segment has up to three.
bool PageRaster::Fill(PagePath path, const PageColor& color)
{
    if (path.size() * 3 <= mostPoints) {
        Outline outline;
        outline.Add(path, [this](const Point& point) { return scale.Place(point); });
        Render(outline, color, PaintSpans);
    }
    return true;
}

bool PageRaster::FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen)
{
    return Fill(path, color) && Stroke(path, pen);
}

/// Paints the outlines of the glyphs without hinting, so that a text has the same proportions at every resolution.
/// Paints nothing if there is no face for the font.
bool PageRaster::Text(const PageText& text)
{
    const FT_Face face = faces.FaceOf(text.font);
    if (face == nullptr || face->units_per_EM == 0) {
        return true;
    }
    const double unit = text.size / static_cast<double>(face->units_per_EM);
    const auto& [a, b, c, d, e, f] = text.matrix;
    double x = 0.0;
    for (std::size_t next = 0; next < text.utf8.size();) {
        const FT_ULong character = NextCharacter(text.utf8, next);
        if (!Succeeded(FT_Load_Char(face, character, FT_LOAD_NO_SCALE))) {
            continue;
        }
        const FT_Outline& glyph = face->glyph->outline;
        Outline outline;
        for (int i = 0; i < glyph.n_points; ++i) {
            const double glyphX = (x + static_cast<double>(glyph.points[i].x)) * unit;
            const double glyphY = static_cast<double>(glyph.points[i].y) * unit;
            outline.Add(scale.Place({a * glyphX + c * glyphY + e, b * glyphX + d * glyphY + f}), glyph.tags[i]);
        }
        outline.contours.assign(glyph.contours, glyph.contours + glyph.n_contours);
        Render(outline, text.color, PaintSpans);
        x += static_cast<double>(face->glyph->metrics.horiAdvance);
    }
    return true;
}

/// Rasterizes the outline in the rows of this object. `takeSpans` is PaintSpans or CoverSpans.
void PageRaster::Render(Outline& outline, const PageColor& color, FT_SpanFunc takeSpans)
{
    if (outline.contours.empty()) {
        return;
    }
    FT_Outline figure = outline.InFreeType();
    Brush brush{pixels, covered, coveredSpans, place.width, place.firstRow, place.rows, BytesOf(color)};
    FT_Raster_Params params{};
    params.flags = FT_RASTER_FLAG_AA | FT_RASTER_FLAG_DIRECT | FT_RASTER_FLAG_CLIP;
    params.gray_spans = takeSpans;
    params.user = &brush;
    params.clip_box = {0, place.firstRow, place.width, place.firstRow + place.rows};
    Succeeded(FT_Outline_Render(faces.Library(), &figure, &params));  // leaves out what FreeType rejects
}

std::span<const std::uint8_t> PageRaster::Row(int row) const
{
    const std::size_t length = static_cast<std::size_t>(place.width) * bytesPerPixel;
    return std::span(pixels).subspan(static_cast<std::size_t>(row) * length, length);
}

}  // namespace linealis
