#pragma once

#include "pdf/Geometry.h"
#include "pdf/PageRoles.h"
#include "platform/Turns.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

// Reads the content of a page as MyPDFGenerator writes it. All code that shows, prints, exports, or checks a page
// uses it: PageReader delivers one operator at a time, ReadPage whole strokes, fills, and texts with their graphics
// state.
//
// A text may contain unescaped parentheses and backslashes from the form. They are read as PDF defines them: a
// parenthesis opened in the text is closed in it, a backslash escapes the next character or an octal code of up to
// three digits, and a line end is one line feed. If the text has a closing parenthesis too many, readers show none
// of it. If it has an opening one too many, it swallows what follows, and the page is damaged from the start of the
// text on.

enum class PageOperator : std::uint8_t {
    StrokeColor,    ///< RG
    FillColor,      ///< rg
    LineWidth,      ///< w
    LineCap,        ///< J
    Dash,           ///< d: on, off, phase; on and off are 0 for a solid line
    Scale,          ///< cm
    Move,           ///< m
    Line,           ///< l
    Curve,          ///< c
    Stroke,         ///< S
    Fill,           ///< f
    FillAndStroke,  ///< B
    BeginText,      ///< BT
    EndText,        ///< ET
    Font,           ///< Tf: number of the font, size
    TextMatrix,     ///< Tm
    TextPosition,   ///< Td
    ShowText,       ///< Tj
};

/// Where and why a page cannot be read any further. Lines count from 1.
struct PageDamage {
    std::int64_t line = 0;
    std::string message;  ///< empty: the page is not damaged
};

/// Iterates over the operators of a content stream, which must outlive the reader. Allocates memory only for a
/// number with more than 15 digits.
class PageReader {
public:
    explicit PageReader(std::string_view content)
        : next(content.data()), end(next + content.size()), lineStart(next)
    {}

    /// Advances to the next operator. Returns false at the end of the content and at damage.
    bool Next();

    PageOperator Operator() const { return operation; }
    /// The operands, exactly as many as the operator takes, all finite.
    std::span<const double> Operands() const { return {operands.data(), count}; }
    /// The text of ShowText, without its parentheses and still escaped; PageString resolves the escapes.
    std::string_view Text() const { return text; }
    /// The source of the operator with its operands, without the line end.
    std::string_view Source() const { return {lineStart, static_cast<std::size_t>(lineEnd - lineStart)}; }
    /// The line that the operator starts on, from 1.
    std::int64_t Line() const { return line; }
    /// The kind of damage that ended Next; empty if there is none.
    const char* Problem() const { return problem; }
    bool IsDamaged() const { return *problem != '\0'; }

private:
    bool ReadLine();
    bool ReadOperand();
    bool ReadNumber();
    bool ReadFontName();
    bool ReadDash();
    bool ReadText();
    void SkipShownNothing();
    bool ReadOperator();
    void SkipBlanks();
    bool AtLineEnd() const { return next == end || *next == '\r'; }
    bool Fail(const char* why);

    static constexpr std::size_t mostOperands = 6;

    const char* next;
    const char* end;
    const char* lineStart;
    const char* lineEnd = lineStart;
    std::int64_t line = 0;
    std::int64_t linesInText = 0;
    std::array<double, mostOperands> operands{};
    std::size_t count = 0;
    bool hasText = false;
    bool hasFontName = false;
    bool hasDash = false;
    std::string_view text;
    PageOperator operation = PageOperator::Stroke;
    const char* problem = "";
};

/// Resolves the escapes of a text between its parentheses. Returns bytes in the encoding of the fonts.
std::string PageString(std::string_view text);

/// A color with channels from 0 to 1.
struct PageColor {
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;

    bool operator==(const PageColor&) const = default;
};

/// The graphics state of a stroke.
struct PagePen {
    double width = 1.0;  ///< points; 0 is the thinnest line of the device
    PageColor color;
    int cap = 0;          ///< 0 butt, 1 round, 2 square
    double dashOn = 0.0;  ///< points; solid if dashOn and dashOff are both 0
    double dashOff = 0.0;
    double dashPhase = 0.0;

    bool operator==(const PagePen&) const = default;
};

/// The least opacity of a line that painters make fainter because it is thinner than a pixel.
inline constexpr double faintestStroke = 0.1;

struct PathSegment {
    PageOperator operation;  ///< Move, Line or Curve
    Point to;
    Point control1{};  ///< of a curve
    Point control2{};
};

/// A path, which begins with a Move. Valid until the call that receives it returns.
using PagePath = std::span<const PathSegment>;

/// Whether the path consists of lines along the axes, like a frame, so that painters can move it to whole pixels.
bool IsAlongAxes(PagePath path);

struct PageText {
    std::string_view bytes;        ///< MacRomanEncoding, or the font's own encoding
    std::string_view utf8;         ///< the same text; undefined codes are U+FFFD
    int font = 0;                  ///< 0 to 14, the number in the name of the font
    double size = 0.0;             ///< points
    std::array<double, 6> matrix;  ///< maps (x, y) of the text to (a x + c y + e, b x + d y + f) on the page
    PageColor color;
};

/// Receives what a page shows, in page order. Each call returns whether to go on.
class PageSink {
public:
    virtual ~PageSink() = default;

    /// Multiplies every following coordinate, width, and size by these factors. Replaces an earlier scale.
    virtual bool Scale(double sx, double sy) = 0;
    virtual bool Stroke(PagePath path, const PagePen& pen) = 0;
    virtual bool Fill(PagePath path, const PageColor& color) = 0;
    virtual bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) = 0;
    virtual bool Text(const PageText& text) = 0;
    /// Everything that follows has the role.
    virtual void BeginRole(Role /*role*/) {}
};

/// Reads the content to its end, to damage, or until the sink returns false. Passes everything before the damage to
/// the sink. The message of the result is empty unless the page is damaged. Counts each operator as a round of
/// `turns`, if given; exceptions from `turns` pass through.
PageDamage ReadPage(std::string_view content, PageSink& sink, Turns* turns = nullptr);

/// Like the function above, and also passes the roles of the content to the sink.
PageDamage ReadPage(std::string_view content, std::span<const RoleRange> roles, PageSink& sink,
                    Turns* turns = nullptr);

}  // namespace linealis
