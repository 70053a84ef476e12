#include "exchange/PageRaster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include FT_OUTLINE_H
#include FT_STROKER_H

namespace linealis {

namespace {

constexpr double partsOfPixel = 64.0;  // FreeType's unit
constexpr std::size_t bytesPerPixel = 4;
constexpr std::size_t mostPoints = 32000;  // FreeType counts them in 16 bits

/// Far outside every picture, and near enough for FreeType. Pixels.
constexpr double farOutside = 100000.0;

FT_Pos Position(double pixels)
{
    return static_cast<FT_Pos>(std::lround(std::clamp(pixels, -farOutside, farOutside) * partsOfPixel));
}

std::array<std::uint8_t, 3> BytesOf(const PageColor& color)
{
    const auto byte = [](double channel) {
        return static_cast<std::uint8_t>(std::lround(std::clamp(channel, 0.0, 1.0) * 255.0));
    };
    return {byte(color.red), byte(color.green), byte(color.blue)};
}

/// Where spans of one color go.
struct Brush {
    std::vector<std::uint8_t>& pixels;
    int width;
    int firstRow;
    int rows;
    std::array<std::uint8_t, 3> color;
};

void PaintSpans(int y, int count, const FT_Span* spans, void* user)
{
    const Brush& brush = *static_cast<const Brush*>(user);
    const int row = y - brush.firstRow;
    if (row < 0 || row >= brush.rows) {
        return;
    }
    constexpr unsigned opaque = 255;
    for (const FT_Span& span : std::span(spans, static_cast<std::size_t>(count))) {
        const int begin = std::max<int>(span.x, 0), end = std::min<int>(span.x + span.len, brush.width);
        const unsigned covered = span.coverage;
        const auto mix = [covered](unsigned under, unsigned over) {
            return static_cast<std::uint8_t>((over * covered + under * (opaque - covered) + opaque / 2) / opaque);
        };
        std::size_t at = (static_cast<std::size_t>(row) * static_cast<std::size_t>(brush.width) +
                          static_cast<std::size_t>(std::max(begin, 0))) *
                         bytesPerPixel;
        for (int x = begin; x < end; ++x, at += bytesPerPixel) {
            for (std::size_t channel = 0; channel < brush.color.size(); ++channel) {
                brush.pixels[at + channel] = mix(brush.pixels[at + channel], brush.color[channel]);
            }
            brush.pixels[at + 3] = mix(brush.pixels[at + 3], opaque);
        }
    }
}

/// The part of the line between two points that lies within so much of the origin, by Liang and Barsky; false if
/// there is none.
bool ClipLine(Point& from, Point& to, double limit)
{
    const double dx = to.x - from.x, dy = to.y - from.y;
    double enter = 0.0, leave = 1.0;
    const std::array<std::pair<double, double>, 4> sides = {
        {{-dx, from.x + limit}, {dx, limit - from.x}, {-dy, from.y + limit}, {dy, limit - from.y}}};
    for (const auto& [step, room] : sides) {
        if (step == 0.0) {
            if (room < 0.0) {
                return false;
            }
        } else if (step < 0.0) {
            enter = std::max(enter, room / step);
        } else {
            leave = std::min(leave, room / step);
        }
    }
    if (!(enter <= leave)) {
        return false;
    }
    const Point start = from;
    from = {start.x + enter * dx, start.y + enter * dy};
    to = {start.x + leave * dx, start.y + leave * dy};
    return true;
}

struct DestroyStroker {
    void operator()(FT_Stroker stroker) const { FT_Stroker_Done(stroker); }
};

char32_t TakeCharacter(std::string_view& utf8)
{
    const auto first = static_cast<unsigned char>(utf8.front());
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? first : first & (0xFFU >> (length + 1));
    for (const char byte : utf8.substr(1, length - 1)) {
        character = character << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    utf8.remove_prefix(std::min(length, utf8.size()));
    return character;
}

}  // namespace

/// A closed figure in FreeType's form.
struct PageRaster::Outline {
    std::vector<FT_Vector> points;
    std::vector<char> tags;
    std::vector<short> contours;  ///< the last point of each

    void Add(const Point& placed, char tag) { Add(FT_Vector{Position(placed.x), Position(placed.y)}, tag); }
    void Add(const FT_Vector& point, char tag)
    {
        points.push_back(point);
        tags.push_back(tag);
    }
    void EndContour()
    {
        if (!points.empty() && (contours.empty() || contours.back() + 1 < static_cast<int>(points.size()))) {
            contours.push_back(static_cast<short>(points.size() - 1));
        }
    }

    template <typename ToPlace>
    void Add(PagePath path, ToPlace toPlace)
    {
        for (const PathSegment& segment : path) {
            if (segment.operation == PageOperator::Move) {
                EndContour();
            } else if (segment.operation == PageOperator::Curve) {
                Add(toPlace(segment.control1), FT_CURVE_TAG_CUBIC);
                Add(toPlace(segment.control2), FT_CURVE_TAG_CUBIC);
            }
            Add(toPlace(segment.to), FT_CURVE_TAG_ON);
        }
        EndContour();
    }

    FT_Outline InFreeType()
    {
        FT_Outline outline{};
        outline.n_contours = static_cast<short>(contours.size());
        outline.n_points = static_cast<short>(points.size());
        outline.points = points.data();
        outline.tags = tags.data();
        outline.contours = contours.data();
        return outline;
    }
};

PageRaster::PageRaster(FontFaces& theFaces, const Place& thePlace, bool isTransparent)
    : faces(theFaces), place(thePlace),
      pixels(static_cast<std::size_t>(place.width) * static_cast<std::size_t>(place.rows) * bytesPerPixel,
             isTransparent ? 0 : 255)
{}

bool PageRaster::Scale(double sx, double sy)
{
    scaleX = sx;
    scaleY = sy;
    return true;
}

Point PageRaster::ToPixels(const Point& point) const
{
    return {point.x * scaleX * place.pixelsPerPoint, (place.pageHeight - point.y * scaleY) * place.pixelsPerPoint};
}

/// In the content's own unit.
double PageRaster::WidthOf(const PagePen& pen) const
{
    const double pixelsPerUnit = std::sqrt(std::abs(scaleX * scaleY)) * place.pixelsPerPoint;
    const double thinnest = pen.width <= 0.0 ? std::max(place.thinnest, 1.0) : place.thinnest;
    return pixelsPerUnit > 0.0 ? std::max(pen.width, thinnest / pixelsPerUnit) : pen.width;
}

bool PageRaster::Stroke(PagePath path, const PagePen& pen)
{
    for (std::size_t begin = 0; begin < path.size();) {
        std::size_t end = begin + 1;
        while (end < path.size() && path[end].operation != PageOperator::Move) {
            ++end;
        }
        const PagePath piece = path.subspan(begin, end - begin);
        if (piece.size() == 2 && piece[1].operation == PageOperator::Line) {
            StrokeLine(piece[0].to, piece[1].to, pen);
        } else {
            StrokePiece(piece, pen);
        }
        begin = end;
    }
    return true;
}

/// A line's rectangle, with its ends, worked out where its width is the same in all directions. One without length
/// is a dot if its ends are round, a square if they are square.
void PageRaster::StrokeLine(Point from, Point to, const PagePen& pen)
{
    constexpr double farOut = 1e6;  // points
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if ((length == 0.0 && pen.cap == 0) || !ClipLine(from, to, farOut)) {
        return;
    }
    // Half the width along the line, and across it to the left.
    const double half = WidthOf(pen) / 2.0;
    const Point along =
        length == 0.0 ? Point{half, 0.0} : Point{(to.x - from.x) / length * half, (to.y - from.y) / length * half};
    const Point across{-along.y, along.x};
    const auto at = [&](const Point& end, double forward, double left) {
        return ToPixels({end.x + forward * along.x + left * across.x, end.y + forward * along.y + left * across.y});
    };
    Outline outline;
    const auto addEnd = [&](const Point& end, double forward) {  // from the line's left to its right, or back
        constexpr double circle = 0.5522847498;                  // makes a quarter of a circle of a Bezier curve
        constexpr int round = 1, square = 2;
        const double out = pen.cap == square ? forward : 0.0;
        outline.Add(at(end, out, forward), FT_CURVE_TAG_ON);
        if (pen.cap == round) {
            outline.Add(at(end, forward * circle, forward), FT_CURVE_TAG_CUBIC);
            outline.Add(at(end, forward, forward * circle), FT_CURVE_TAG_CUBIC);
            outline.Add(at(end, forward, 0.0), FT_CURVE_TAG_ON);
            outline.Add(at(end, forward, -forward * circle), FT_CURVE_TAG_CUBIC);
            outline.Add(at(end, forward * circle, -forward), FT_CURVE_TAG_CUBIC);
        }
        outline.Add(at(end, out, -forward), FT_CURVE_TAG_ON);
    };
    addEnd(to, 1.0);
    addEnd(from, -1.0);
    outline.EndContour();
    Paint(outline, pen.color);
}

void PageRaster::StrokePiece(PagePath piece, const PagePen& pen)
{
    constexpr double fine = 16.0;  // times finer than a pixel's parts, in the content's own system
    const double unit = place.pixelsPerPoint * fine;
    constexpr FT_Fixed miterLimit = 10L << 16U;
    FT_Stroker raw = nullptr;
    if (piece.size() * 3 > mostPoints || !Succeeded(FT_Stroker_New(faces.Library(), &raw))) {
        return;
    }
    const std::unique_ptr<std::remove_pointer_t<FT_Stroker>, DestroyStroker> stroker(raw);
    const FT_Stroker_LineCap cap = pen.cap == 0   ? FT_STROKER_LINECAP_BUTT
                                   : pen.cap == 1 ? FT_STROKER_LINECAP_ROUND
                                                  : FT_STROKER_LINECAP_SQUARE;
    FT_Stroker_Set(raw, Position(WidthOf(pen) * unit / 2.0), cap, FT_STROKER_LINEJOIN_MITER_FIXED, miterLimit);
    Outline path;
    path.Add(piece, [unit](const Point& point) { return Point{point.x * unit, point.y * unit}; });
    FT_Outline given = path.InFreeType();
    FT_UInt points = 0, contours = 0;
    if (!Succeeded(FT_Stroker_ParseOutline(raw, &given, 1)) ||
        !Succeeded(FT_Stroker_GetCounts(raw, &points, &contours)) || points == 0 || points > mostPoints) {
        return;
    }
    Outline made;
    made.points.resize(points);
    made.tags.resize(points);
    made.contours.resize(contours);
    FT_Outline stroked = made.InFreeType();
    stroked.n_points = 0;  // which the stroker counts up
    stroked.n_contours = 0;
    FT_Stroker_Export(raw, &stroked);
    for (FT_Vector& point : made.points) {
        const Point placed = ToPixels({static_cast<double>(point.x) / partsOfPixel / unit,
                                       static_cast<double>(point.y) / partsOfPixel / unit});
        point = {Position(placed.x), Position(placed.y)};
    }
    Paint(made, pen.color);
}

bool PageRaster::Fill(PagePath path, const PageColor& color)
{
    if (path.size() * 3 <= mostPoints) {
        Outline outline;
        outline.Add(path, [this](const Point& point) { return ToPixels(point); });
        Paint(outline, color);
    }
    return true;
}

bool PageRaster::FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen)
{
    return Fill(path, color) && Stroke(path, pen);
}

bool PageRaster::Text(const PageText& text)
{
    const FT_Face face = faces.FaceOf(text.font);
    if (face == nullptr || face->units_per_EM == 0) {
        return true;
    }
    const double unit = text.size / static_cast<double>(face->units_per_EM);
    const auto& [a, b, c, d, e, f] = text.matrix;
    double x = 0.0;
    for (std::string_view rest = text.utf8; !rest.empty();) {
        const FT_ULong character = TakeCharacter(rest);
        if (!Succeeded(FT_Load_Char(face, character, FT_LOAD_NO_SCALE))) {
            continue;
        }
        const FT_Outline& glyph = face->glyph->outline;
        Outline outline;
        for (int i = 0; i < glyph.n_points; ++i) {
            const double glyphX = (x + static_cast<double>(glyph.points[i].x)) * unit;
            const double glyphY = static_cast<double>(glyph.points[i].y) * unit;
            outline.Add(ToPixels({a * glyphX + c * glyphY + e, b * glyphX + d * glyphY + f}), glyph.tags[i]);
        }
        outline.contours.assign(glyph.contours, glyph.contours + glyph.n_contours);
        Paint(outline, text.color);
        x += static_cast<double>(face->glyph->metrics.horiAdvance);
    }
    return true;
}

void PageRaster::Paint(Outline& outline, const PageColor& color)
{
    if (outline.contours.empty()) {
        return;
    }
    FT_Outline figure = outline.InFreeType();
    Brush brush{pixels, place.width, place.firstRow, place.rows, BytesOf(color)};
    FT_Raster_Params params{};
    params.flags = FT_RASTER_FLAG_AA | FT_RASTER_FLAG_DIRECT | FT_RASTER_FLAG_CLIP;
    params.gray_spans = PaintSpans;
    params.user = &brush;
    params.clip_box = {0, place.firstRow, place.width, place.firstRow + place.rows};
    Succeeded(FT_Outline_Render(faces.Library(), &figure, &params));  // one that FreeType cannot paint is left out
}

std::span<const std::uint8_t> PageRaster::Row(int row) const
{
    const std::size_t length = static_cast<std::size_t>(place.width) * bytesPerPixel;
    return std::span(pixels).subspan(static_cast<std::size_t>(row) * length, length);
}

}  // namespace linealis
