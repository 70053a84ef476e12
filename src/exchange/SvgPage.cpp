#include "exchange/SvgPage.h"

#include "exchange/CarriedText.h"
#include "pdf/PageContent.h"
#include "pdf/StandardFonts.h"
#include "pdf/Units.h"
#include "text/DoubleText.h"
#include "text/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace linealis {

namespace {

std::string Written(double number)
{
    return ShortestText(number);
}

/// Returns the color as "#rrggbb".
std::string Written(const PageColor& color)
{
    const auto channel = [](double value) {
        return static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
    };
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", static_cast<unsigned>(channel(color.red)),
                  static_cast<unsigned>(channel(color.green)), static_cast<unsigned>(channel(color.blue)));
    return text.data();
}

std::string Written(const Point& point)
{
    return Written(point.x) + " " + Written(point.y);
}

std::string Written(PagePath path)
{
    std::string text;
    for (const PathSegment& segment : path) {
        switch (segment.operation) {
        case PageOperator::Move:
            text += "M" + Written(segment.to);
            break;
        case PageOperator::Curve:
            text += "C" + Written(segment.control1) + " " + Written(segment.control2) + " " + Written(segment.to);
            break;
        default:
            text += "L" + Written(segment.to);
        }
    }
    return text;
}

std::string Attribute(std::string_view name, std::string_view value)
{
    return " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

std::string StrokeAttributes(const PagePen& pen)
{
    constexpr std::array caps = {"butt", "round", "square"};
    // Width 0 is the thinnest line in PDF, but none in SVG: use one pixel at any zoom.
    const bool isThinnest = pen.width <= 0.0;
    std::string text = Attribute("stroke", Written(pen.color)) +
                       Attribute("stroke-width", isThinnest ? "1" : Written(pen.width)) +
                       (isThinnest ? Attribute("vector-effect", "non-scaling-stroke") : "");
    if (pen.cap != 0) {
        text += Attribute("stroke-linecap", caps.at(static_cast<std::size_t>(std::clamp(pen.cap, 0, 2))));
    }
    if (pen.dashOn > 0.0 || pen.dashOff > 0.0) {
        text += Attribute("stroke-dasharray", Written(pen.dashOn) + " " + Written(pen.dashOff)) +
                Attribute("stroke-dashoffset", Written(pen.dashPhase));
    }
    return text;
}

std::string FontAttributes(int number)
{
    const StandardFont& font = StandardFontOf(number);
    std::string families;
    for (const std::string_view name : font.family.names) {
        families += (families.empty() ? "'" : ", '") + std::string(name) + "'";
    }
    if (!font.family.generic.empty()) {
        families += ", " + std::string(font.family.generic);
    }
    return Attribute("font-family", families) + (font.isBold ? Attribute("font-weight", "bold") : "") +
           (font.isSlanted ? Attribute("font-style", "italic") : "");
}

/// Returns attributes that keep the width of the text when another font replaces its own. Empty if the width is
/// unknown.
std::string WidthAttributes(const PageText& text)
{
    const double width = ShownWidth(StandardFontOf(text.font), text.bytes) * text.size;
    return width > 0.0 ? Attribute("textLength", Written(width)) + Attribute("lengthAdjust", "spacingAndGlyphs")
                       : "";
}

/// Returns one class for the role and one for each more general role.
std::string ClassesOf(Role role)
{
    std::string classes, name;
    for (const char c : role) {
        if (c == '.') {
            classes += name + " ";
        }
        name += c == '.' ? '-' : c;
    }
    return classes + name;
}

/// Writes a content as SVG elements. Joins consecutive strokes with the same pen and role into one path, to keep
/// the file small.
class SvgSink final : public PageSink {
public:
    SvgSink(double thePageHeight, BinaryStream& theStream) : pageHeight(thePageHeight), stream(theStream)
    {
        OpenGroup(1.0, 1.0);
    }

    bool Scale(double sx, double sy) override
    {
        EndPath();
        CloseRole();
        stream.Write("</g>\n");
        OpenGroup(sx, sy);
        return true;
    }

    bool Stroke(PagePath path, const PagePen& pen) override
    {
        constexpr std::size_t longestPath = 60000;  // bytes: ends the path after this many
        if (strokes.empty() || pen != strokePen || strokes.size() > longestPath) {
            EndPath();
            strokePen = pen;
        }
        strokes += Written(path);
        return true;
    }

    bool Fill(PagePath path, const PageColor& color) override
    {
        EndPath();
        Write("<path" + Attribute("d", Written(path)) + Attribute("fill", Written(color)) +
              Attribute("stroke", "none") + "/>\n");
        return true;
    }

    bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) override
    {
        EndPath();
        Write("<path" + Attribute("d", Written(path)) + Attribute("fill", Written(color)) + StrokeAttributes(pen) +
              "/>\n");
        return true;
    }

    bool Text(const PageText& text) override
    {
        EndPath();
        const auto& [a, b, c, d, e, f] = text.matrix;
        // Flips y once more: the group has flipped it, and glyphs must be upright.
        std::string matrix = "matrix(";
        for (const double number : {a, b, -c, -d, e}) {
            matrix += Written(number) + " ";
        }
        Write("<text" + Attribute("transform", matrix + Written(f) + ")") + FontAttributes(text.font) +
              Attribute("font-size", Written(text.size)) + Attribute("fill", Written(text.color)) +
              Attribute("stroke", "none") + WidthAttributes(text) + Attribute("xml:space", "preserve") + ">" +
              XmlText(text.utf8) + "</text>\n");
        return true;
    }

    void BeginRole(Role next) override
    {
        EndPath();
        role = next;
    }

    void Finish()
    {
        EndPath();
        CloseRole();
        stream.Write("</g>\n");
    }

private:
    /// Opens a group that converts coordinates of the content, which count upward from the lower left corner. The
    /// miter limit is the default of PDF.
    void OpenGroup(double sx, double sy)
    {
        stream.Write("<g" +
                     Attribute("transform", "matrix(" + Written(sx) + " 0 0 " + Written(-sy) + " 0 " +
                                                Written(pageHeight) + ")") +
                     Attribute("fill", "none") + Attribute("stroke-miterlimit", "10") + ">\n");
    }

    /// Writes the collected strokes as one path.
    void EndPath()
    {
        if (!strokes.empty()) {
            Write("<path" + Attribute("d", strokes) + StrokeAttributes(strokePen) + "/>\n");
            strokes.clear();
        }
    }

    /// Writes an element into the group of its role. Opens a group only with its first element, so that no group is
    /// empty.
    void Write(const std::string& element)
    {
        if (role != openRole) {
            CloseRole();
            stream.Write("<g" + Attribute("class", ClassesOf(role)) + ">\n");
            openRole = role;
        }
        stream.Write(element);
    }

    void CloseRole()
    {
        if (!openRole.empty()) {
            stream.Write("</g>\n");
            openRole = {};
        }
    }

    double pageHeight;
    BinaryStream& stream;
    std::string strokes;  ///< path data not yet written
    PagePen strokePen;
    Role role;
    Role openRole;  ///< of the open group; empty if none is open
};

}  // namespace

void WriteSvg(const PaperSize& paper, std::string_view content, std::span<const RoleRange> roles,
              std::string_view carried, BinaryStream& stream, Turns* turns)
{
    const auto width = static_cast<double>(paper.width), height = static_cast<double>(paper.height);
    stream.Write(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg" + Attribute("xmlns", "http://www.w3.org/2000/svg") +
        Attribute("version", "1.1") + Attribute("width", Str(width * mmPerPoint) + "mm") +
        Attribute("height", Str(height * mmPerPoint) + "mm") +
        Attribute("viewBox", "0 0 " + Written(width) + " " + Written(height)) + ">\n<title>Linealis</title>\n");
    if (!carried.empty()) {
        const std::string element(carriedElement);
        stream.Write("<metadata><" + element + Attribute("xmlns:linealis", carriedNamespace) + ">" +
                     XmlText(carried) + "</" + element + "></metadata>\n");
    }
    SvgSink sink(height, stream);
    ReadPage(content, roles, sink, turns);
    sink.Finish();
    stream.Write("</svg>\n");
}

}  // namespace linealis
