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

// A page's content, read as MyPDFGenerator writes it. Whoever shows, prints, exports or judges a page reads it
// here: PageReader hands on operator by operator, ReadPage whole strokes, fills and texts with what they are made
// with.
//
// A text may hold parentheses and backslashes as they came from the form. They are read as PDF reads them: a
// parenthesis opened in the text is closed in it, a backslash takes the next character or an octal code of three
// digits at most, a line end is one line feed. With a closing parenthesis too many, readers show nothing of the
// text; with an opening one too many, the text swallows what follows, and the page is damaged where the text
// begins.

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

/// Where and why a page cannot be read further. Lines count from 1.
struct PageDamage {
    std::int64_t line = 0;
    std::string message;  ///< empty: no damage
};

/// Goes through a content from operator to operator. The content must outlive it.
/// Allocates nothing but for a number of more than 15 digits.
class PageReader {
public:
    explicit PageReader(std::string_view content)
        : next(content.data()), end(next + content.size()), lineStart(next)
    {}

    /// Moves to the next operator. False at the end of the content and where it is damaged.
    bool Next();

    PageOperator Operator() const { return operation; }
    /// As many as the operator takes, and all finite.
    std::span<const double> Operands() const { return {operands.data(), count}; }
    /// What ShowText shows, without its parentheses and not yet unescaped (PageString does that).
    std::string_view Text() const { return text; }
    /// The operator with its operands as they stand in the content, without the line end.
    std::string_view Source() const { return {lineStart, lineEnd}; }
    /// The line in which the operator begins, from 1.
    std::int64_t Line() const { return line; }
    /// Empty unless Next ended at damage.
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

/// The bytes that a text between its parentheses stands for, in the fonts' encoding.
std::string PageString(std::string_view text);

/// Channels from 0 to 1.
struct PageColor {
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;

    bool operator==(const PageColor&) const = default;
};

struct PagePen {
    double width = 1.0;  ///< points; 0 is the thinnest line of the device
    PageColor color;
    int cap = 0;          ///< 0 butt, 1 round, 2 square
    double dashOn = 0.0;  ///< points; solid if this and dashOff are 0
    double dashOff = 0.0;
    double dashPhase = 0.0;

    bool operator==(const PagePen&) const = default;
};

struct PathSegment {
    PageOperator operation;  ///< Move, Line or Curve
    Point to;
    Point control1{};  ///< of a curve
    Point control2{};
};

/// Begins with a Move. Stands until the call that hands it on returns.
using PagePath = std::span<const PathSegment>;

struct PageText {
    std::string_view bytes;        ///< MacRomanEncoding, or the font's own encoding
    std::string_view utf8;         ///< the same text; what the encoding does not have is U+FFFD
    int font = 0;                  ///< 0 to 14, the number in the font's name
    double size = 0.0;             ///< points
    std::array<double, 6> matrix;  ///< (x, y) of the text is at (a x + c y + e, b x + d y + f) of the page
    PageColor color;
};

/// Takes what a page shows, in the page's order. Each call returns whether to go on.
class PageSink {
public:
    virtual ~PageSink() = default;

    /// From here on, each coordinate, width and size is to be multiplied by these. Replaces an earlier scale.
    virtual bool Scale(double sx, double sy) = 0;
    virtual bool Stroke(PagePath path, const PagePen& pen) = 0;
    virtual bool Fill(PagePath path, const PageColor& color) = 0;
    virtual bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) = 0;
    virtual bool Text(const PageText& text) = 0;
    /// What follows has the role.
    virtual void BeginRole(Role /*role*/) {}
};

/// Reads the content to its end, to damage or until the sink wants no more. What stood before the damage has been
/// handed on. The message is empty unless the page is damaged. Each operator is a round of `turns`, if there are
/// any; what they throw passes through.
PageDamage ReadPage(std::string_view content, PageSink& sink, Turns* turns = nullptr);

/// The same, with the roles of the content.
PageDamage ReadPage(std::string_view content, std::span<const RoleRange> roles, PageSink& sink,
                    Turns* turns = nullptr);

}  // namespace linealis
