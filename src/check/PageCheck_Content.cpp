#include "check/PageCheck.h"

#include "pdf/PageContent.h"
#include "text/Numbers.h"
#include "text/ShortText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace linealis {

namespace {

constexpr double tolerance = 0.5;                         // points that a line or text may extend beyond an edge
constexpr std::size_t mostTexts = 2000;                   // of a page, to limit the time; the rest is ignored
constexpr std::size_t mostLines = std::size_t{1} << 20U;  // of a page that are compared with titles

/// A rectangle on the page, in points.
struct Box {
    double left, bottom, right, top;

    bool Meets(const Box& other) const
    {
        return left < other.right && other.left < right && bottom < other.top && other.bottom < top;
    }
    bool IsInside(const Box& other) const
    {
        return left >= other.left && right <= other.right && bottom >= other.bottom && top <= other.top;
    }
    Box Grown(double by) const { return {left - by, bottom - by, right + by, top + by}; }
};

/// A text of the page and the area that it covers.
struct PlacedText {
    std::string text;
    Role role;
    Box box;
    bool isUpright;
    bool isTitle;
};

struct StraightLine {
    Point from;
    Point to;
};

/// Returns the mean width of a character as a fraction of the text size: exact for Courier (fonts 0 to 4), the
/// width of a digit for Helvetica (5 to 8) and the other fonts.
double CharacterWidth(int font)
{
    constexpr double ofCourier = 0.6, ofHelvetica = 0.556, ofTimes = 0.5;
    return font <= 4 ? ofCourier : font <= 8 ? ofHelvetica : ofTimes;
}

/// Whether the line passes through the box. Clips the line to one pair of edges at a time, with positions on the
/// line from 0 to 1 (Liang-Barsky).
bool Crosses(const StraightLine& line, const Box& box)
{
    double from = 0.0, to = 1.0;
    const auto clip = [&](double start, double along, double low, double high) {
        if (along == 0.0) {
            return start >= low && start <= high;
        }
        const double first = (low - start) / along, second = (high - start) / along;
        from = std::max(from, std::min(first, second));
        to = std::min(to, std::max(first, second));
        return from <= to;
    };
    return clip(line.from.x, line.to.x - line.from.x, box.left, box.right) &&
           clip(line.from.y, line.to.y - line.from.y, box.bottom, box.top);
}

/// Whether a text is a title and not a number. A number can be a multiple of pi, such as "-3PI/2". A single
/// character counts as no title, because text along a circle is drawn character by character.
bool IsTitle(std::string_view text)
{
    const bool isMultipleOfPi = text.find("PI") != std::string_view::npos &&
                                text.find_first_not_of("-0123456789/PI") == std::string_view::npos;
    return text.size() > 1 && !isMultipleOfPi && !IsNumber(text);
}

/// Collects the texts and the straight lines of a page, and checks the lines one by one.
class TextAndLineReader final : public PageSink {
public:
    explicit TextAndLineReader(const PageFrame& frame)
        : paper{0.0, 0.0, static_cast<double>(frame.paperWidth), static_cast<double>(frame.paperHeight)}
    {}

    Box paper;
    std::vector<PlacedText> texts;
    std::vector<StraightLine> lines;  ///< at most mostLines
    bool isEmpty = true;              ///< whether nothing is visible
    double largestNumber = 0.0;       ///< the largest absolute value of a coordinate or width of a line
    /// The strokes that extend beyond the edge of the paper.
    std::size_t linesOff = 0;

    void BeginRole(Role newRole) override { role = newRole; }
    bool Scale(double sx, double sy) override
    {
        scaleX = sx;
        scaleY = sy;
        return true;
    }
    bool Stroke(PagePath path, const PagePen& pen) override
    {
        largestNumber = std::max(largestNumber, std::abs(pen.width));
        const Box room = paper.Grown(tolerance);
        bool isOff = false;
        Point last{};
        for (const PathSegment& segment : path) {
            const Point at = OnPaper(segment.to);
            largestNumber = std::max({largestNumber, std::abs(segment.to.x), std::abs(segment.to.y)});
            isOff = isOff || at.x < room.left || at.x > room.right || at.y < room.bottom || at.y > room.top;
            if (segment.operation == PageOperator::Line && lines.size() < mostLines) {
                lines.push_back({last, at});
            }
            last = at;
        }
        linesOff += isOff ? 1 : 0;
        isEmpty = isEmpty && pen.cap == 0 && !HasLength(path);
        return true;
    }
    /// Ignores fills: they are the background or the box behind a number, never the whole content of a page.
    bool Fill(PagePath /*path*/, const PageColor& /*color*/) override { return true; }
    bool FillAndStroke(PagePath /*path*/, const PageColor& /*color*/, const PagePen& /*pen*/) override
    {
        isEmpty = false;
        return true;
    }
    bool Text(const PageText& text) override
    {
        isEmpty = isEmpty && text.utf8.empty();
        if (!text.utf8.empty() && texts.size() < mostTexts) {
            texts.push_back(Place(text));
        }
        return true;
    }

private:
    /// Whether the path has a length. A stroke without one is painted only if its caps are round or square.
    static bool HasLength(PagePath path)
    {
        return std::any_of(path.begin(), path.end(), [&](const PathSegment& segment) {
            return segment.operation == PageOperator::Curve || segment.to.x != path.front().to.x ||
                   segment.to.y != path.front().to.y;
        });
    }

    /// Applies the scale of the page.
    Point OnPaper(const Point& point) const { return {point.x * scaleX, point.y * scaleY}; }

    /// Computes the area of a text from its size and its text matrix, as the bounding box of four corners.
    PlacedText Place(const PageText& text) const
    {
        constexpr double ascent = 0.7, descent = 0.05;  // of digits and capitals, as a fraction of the size
        const double width = static_cast<double>(text.bytes.size()) * CharacterWidth(text.font) * text.size;
        Box box{1e9, 1e9, -1e9, -1e9};
        for (const double x : {0.0, width}) {
            for (const double y : {-descent * text.size, ascent * text.size}) {
                const auto& m = text.matrix;
                const Point at = OnPaper({m[0] * x + m[2] * y + m[4], m[1] * x + m[3] * y + m[5]});
                box = {std::min(box.left, at.x), std::min(box.bottom, at.y), std::max(box.right, at.x),
                       std::max(box.top, at.y)};
            }
        }
        return {std::string(text.utf8), role, box, std::abs(text.matrix[1]) < 1e-6, IsTitle(text.utf8)};
    }

    double scaleX = 1.0, scaleY = 1.0;
    Role role;
};

Message Quoted(const std::string& text)
{
    return Message("\u201C%1\u201D", Shortened(text));
}

/// Returns the field of the form that the text comes from, or null.
const PrintedField* FieldOf(const PlacedText& text, const PaperPage& page)
{
    const auto found = std::find_if(page.printed.begin(), page.printed.end(),
                                    [&](const PrintedField& field) { return field.role == text.role; });
    return found == page.printed.end() ? nullptr : &*found;
}

/// Returns the name of the field that the text comes from, or an empty name.
std::string ControlOf(const PlacedText& text, const PaperPage& page)
{
    const PrintedField* const field = FieldOf(text, page);
    return field == nullptr ? "" : field->control;
}

/// Checks that texts are on the paper. Adds at most one warning for titles and one for numbers.
void CheckPlaces(const TextAndLineReader& page, const PaperPage& read, PageWarnings& warnings)
{
    for (const bool wantsTitle : {true, false}) {
        const auto isOff = [&](const PlacedText& text) {
            return text.isTitle == wantsTitle && !text.box.IsInside(page.paper.Grown(tolerance));
        };
        const auto found = std::find_if(page.texts.begin(), page.texts.end(), isOff);
        if (found != page.texts.end()) {
            const auto count = std::count_if(page.texts.begin(), page.texts.end(), isOff);
            warnings.push_back({wantsTitle ? "title-off-page" : "numbers-off-page", ControlOf(*found, read),
                                count > 1 ? Message("%1 and other texts leave the page", Quoted(found->text))
                                          : Message("%1 leaves the page", Quoted(found->text))});
        }
    }
}

/// Checks consecutive numbers in a row or column. Adds at most one warning for overlaps and one for repetitions.
void CheckNumbers(const std::vector<PlacedText>& texts, PageWarnings& warnings)
{
    const PlacedText* overlapping = nullptr;
    const PlacedText* repeated = nullptr;
    for (std::size_t i = 1; i < texts.size(); ++i) {
        const PlacedText& before = texts[i - 1];
        const PlacedText& text = texts[i];
        // Single characters are skipped: they can belong to a text along a circle.
        const bool areParts = before.text.size() == 1 && text.text.size() == 1;
        if (before.isTitle || text.isTitle || areParts || before.isUpright != text.isUpright) {
            continue;
        }
        const bool isInLine = std::abs(before.box.bottom - text.box.bottom) < tolerance ||
                              std::abs(before.box.right - text.box.right) < tolerance ||
                              std::abs(before.box.left - text.box.left) < tolerance;
        if (overlapping == nullptr && before.box.Grown(-0.2).Meets(text.box)) {
            overlapping = &text;
        }
        if (repeated == nullptr && isInLine && before.text == text.text) {
            repeated = &text;
        }
    }
    if (overlapping != nullptr) {
        warnings.push_back({"numbers-overlap", "", Message("Numbers overlap at %1", Quoted(overlapping->text))});
    }
    if (repeated != nullptr) {
        warnings.push_back(
            {"numbers-repeat", "",
             Message("The number %1 marks several lines: the step is lost in rounding", Quoted(repeated->text))});
    }
}

void CheckLines(const TextAndLineReader& page, PageWarnings& warnings)
{
    if (page.isEmpty) {
        warnings.push_back({"empty", "", Message("The page is empty")});
    }
    if (page.linesOff > 0) {
        warnings.push_back({"off-page", "",
                            Message(Plural("%1 line reaches beyond the edge of the paper",
                                           "%1 lines reach beyond the edge of the paper"),
                                    static_cast<double>(page.linesOff), static_cast<double>(page.linesOff))});
    }
}

void CheckSizeOfNumbers(const TextAndLineReader& page, PageWarnings& warnings)
{
    constexpr double mostOfReaders = 9.2e18;  // about 2^63: many readers store numbers as 64-bit integers
    if (page.largestNumber >= mostOfReaders) {
        warnings.push_back(
            {"huge-number", "",
             Message("The page contains numbers of 9.2e18 and more, which many readers cannot read")});
    }
}

/// Checks that titles do not cover lines, except where the form places them when it opens.
void CheckTitles(const TextAndLineReader& page, const PaperPage& read, PageWarnings& warnings)
{
    for (const PlacedText& text : page.texts) {
        const PrintedField* const field = FieldOf(text, read);
        const bool isMeantSo = field != nullptr && field->coversLines && field->standsAsOpened;
        if (text.isTitle && !isMeantSo &&
            std::any_of(page.lines.begin(), page.lines.end(),
                        [&](const StraightLine& line) { return Crosses(line, text.box); })) {
            warnings.push_back(
                {"title-over-lines", ControlOf(text, read), Message("%1 overlaps grid lines", Quoted(text.text))});
        }
    }
}

}  // namespace

PageWarnings ContentWarnings(const PaperPage& page, std::string_view content, std::span<const RoleRange> roles)
{
    PageWarnings warnings;
    TextAndLineReader shown(page.frame);
    const PageDamage damage = ReadPage(content, roles, shown);
    if (!damage.message.empty()) {
        warnings.push_back({"damaged", "", Message("The page is damaged: %1", damage.message)});
    }
    CheckSizeOfNumbers(shown, warnings);
    CheckLines(shown, warnings);
    CheckPlaces(shown, page, warnings);
    CheckNumbers(shown.texts, warnings);
    CheckTitles(shown, page, warnings);
    return warnings;
}

PageWarnings WarningsOf(const DrawnPage& page)
{
    PageWarnings warnings = page.warnings;
    PageWarnings ofContent = ContentWarnings(page, page.content, page.roles);
    std::move(ofContent.begin(), ofContent.end(), std::back_inserter(warnings));
    return warnings;
}

}  // namespace linealis
