#include "exchange/DxfPage.h"

#include "exchange/DxfColor.h"
#include "exchange/DxfGroups.h"
#include "exchange/DxfOutline.h"
#include "exchange/DxfTables.h"
#include "pdf/PageContent.h"
#include "pdf/StandardFonts.h"
#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace linealis {

namespace {

/// Returns the line weight that DXF has, in hundredths of a millimeter, nearest to the width.
int NearestWeight(double millimeters)
{
    constexpr std::array weights = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                    53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
    constexpr double perMillimeter = 100.0;
    const double width = millimeters * perMillimeter;
    return *std::min_element(weights.begin(), weights.end(),
                             [&](int a, int b) { return std::abs(a - width) < std::abs(b - width); });
}

/// Returns the text as DXF writes it: characters that it would read in another way, and those beyond ASCII, by
/// their code, such as \U+00E9. Those beyond four digits have no code there and become "?".
std::string DxfText(std::string_view utf8)
{
    constexpr std::uint32_t lastOfAscii = '~', lastWithCode = 0xFFFF;
    constexpr std::size_t digits = 4;
    std::string text;
    for (std::size_t at = 0; at < utf8.size();) {
        const std::uint32_t character = NextCharacter(utf8, at);
        const bool isPlain = character >= ' ' && character <= lastOfAscii && character != '\\' &&
                             character != '^' && (character != '%' || !text.ends_with('%'));
        if (isPlain) {
            text += static_cast<char>(character);
        } else if (character <= lastWithCode) {
            const std::string code = DxfHandle(character);
            text += "\\U+" + std::string(digits - code.size(), '0') + code;
        } else {
            text += '?';
        }
    }
    return text;
}

/// Writes a content as entities.
class DxfSink final : public PageSink {
public:
    DxfSink(std::string theOwner, DxfGroups& theGroups) : owner(std::move(theOwner)), groups(theGroups) {}

    bool Scale(double sx, double sy) override
    {
        scaleX = sx * dxfUnitsPerPoint;
        scaleY = sy * dxfUnitsPerPoint;
        return true;
    }

    bool Stroke(PagePath path, const PagePen& pen) override
    {
        for (const DxfOutline& outline : OutlinesOf(path, scaleX, scaleY)) {
            Write(outline, pen);
        }
        return true;
    }

    bool Fill(PagePath path, const PageColor& color) override
    {
        std::vector<DxfOutline> outlines = OutlinesOf(path, scaleX, scaleY);
        std::erase_if(outlines, [](const DxfOutline& outline) { return outline.corners.size() < 2; });
        if (outlines.empty()) {
            return true;
        }
        Begin("HATCH", "AcDbHatch", color);
        groups.Add(10, 0.0, 0.0);
        groups.Add(30, 0.0);
        groups.Add(210, 0.0, 0.0);
        groups.Add(230, 1.0);
        groups.Add(2, "SOLID");
        groups.Add(70, 1);  // filled
        groups.Add(71, 0);
        groups.Add(91, static_cast<int>(outlines.size()));
        for (const DxfOutline& outline : outlines) {
            constexpr int outerPolyline = 3;
            groups.Add(92, outerPolyline);
            groups.Add(72, 1);  // corners have bulges
            groups.Add(73, 1);  // closed
            groups.Add(93, static_cast<int>(outline.corners.size()));
            AddCorners(outline, true);
            groups.Add(97, 0);
        }
        groups.Add(75, 0);
        groups.Add(76, 1);
        groups.Add(98, 0);
        return true;
    }

    bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) override
    {
        return Fill(path, color) && Stroke(path, pen);
    }

    bool Text(const PageText& text) override
    {
        if (text.utf8.empty()) {
            return true;
        }
        constexpr double degreesPerRadian = 180.0 / std::numbers::pi;
        const auto& [a, b, c, d, e, f] = text.matrix;
        const double across = std::hypot(a * scaleX, b * scaleY), up = std::hypot(c * scaleX, d * scaleY);
        const StandardFont& font = StandardFontOf(text.font);
        Begin("TEXT", "AcDbText", text.color);
        groups.Add(10, e * scaleX, f * scaleY);
        groups.Add(30, 0.0);
        groups.Add(40, text.size * font.family.capHeight * up);
        groups.Add(1, DxfText(text.utf8));
        groups.Add(50, std::atan2(b * scaleY, a * scaleX) * degreesPerRadian);
        groups.Add(41, up > 0.0 ? across / up : 1.0);
        groups.Add(7, font.name);
        groups.Add(100, "AcDbText");
        return true;
    }

    void BeginRole(Role role) override { layer = DxfLayer(role); }

private:
    /// Begins an entity on the layer of the role. `weight` is in hundredths of a millimeter.
    void Begin(std::string_view type, std::string_view subclass, const PageColor& color, int weight = 0)
    {
        if (!(color == lastColor)) {
            lastColor = color;
            colorNumber = DxfColor(color);
        }
        groups.Begin(type, owner);
        groups.Add(100, "AcDbEntity");
        groups.Add(8, layer);
        groups.Add(62, colorNumber);
        if (weight > 0) {
            groups.Add(370, weight);
        }
        groups.Add(100, subclass);
    }

    /// The width of the pen in millimeters. Where the page is stretched, it is the mean of both directions.
    double WidthOf(const PagePen& pen) const { return pen.width * std::sqrt(std::abs(scaleX * scaleY)); }

    void Write(const DxfOutline& outline, const PagePen& pen)
    {
        const std::vector<DxfCorner>& corners = outline.corners;
        const int weight = NearestWeight(WidthOf(pen));
        if (corners.size() < 2) {
            return;
        }
        const Point first = corners.front().at, last = corners.back().at;
        const bool isLine = corners.size() == 2 && !outline.isClosed && corners.front().bulge == 0.0;
        if (isLine && first.x == last.x && first.y == last.y) {
            if (pen.cap == 1) {
                Write(DxfCircle{first, WidthOf(pen) / 2.0}, pen.color, 0);  // other ends show nothing
            }
        } else if (isLine) {
            Begin("LINE", "AcDbLine", pen.color, weight);
            groups.Add(10, first.x, first.y);
            groups.Add(30, 0.0);
            groups.Add(11, last.x, last.y);
            groups.Add(31, 0.0);
        } else if (const std::optional<DxfCircle> circle = CircleOf(outline)) {
            Write(*circle, pen.color, weight);
        } else {
            Begin("LWPOLYLINE", "AcDbPolyline", pen.color, weight);
            groups.Add(90, static_cast<int>(corners.size()));
            groups.Add(70, outline.isClosed ? 1 : 0);
            AddCorners(outline, false);
        }
    }

    void Write(const DxfCircle& circle, const PageColor& color, int weight)
    {
        if (circle.radius > 0.0) {
            Begin("CIRCLE", "AcDbCircle", color, weight);
            groups.Add(10, circle.center.x, circle.center.y);
            groups.Add(30, 0.0);
            groups.Add(40, circle.radius);
        }
    }

    void AddCorners(const DxfOutline& outline, bool withAllBulges)
    {
        for (const DxfCorner& corner : outline.corners) {
            groups.Add(10, corner.at.x, corner.at.y);
            if (withAllBulges || corner.bulge != 0.0) {
                groups.Add(42, corner.bulge);
            }
        }
    }

    std::string owner;
    DxfGroups& groups;
    double scaleX = dxfUnitsPerPoint;  ///< millimeters per unit of the content
    double scaleY = dxfUnitsPerPoint;
    std::string layer = DxfLayer({});
    PageColor lastColor;
    int colorNumber = DxfColor({});  ///< of lastColor
};

}  // namespace

void WriteDxf(const PaperSize& paper, std::string_view content, std::span<const RoleRange> roles,
              BinaryStream& stream, Turns* turns)
{
    DxfGroups groups(stream);
    DxfSink sink(BeginDxf(paper, roles, groups), groups);
    ReadPage(content, roles, sink, turns);
    EndDxf(groups);
    groups.Flush();
}

}  // namespace linealis
