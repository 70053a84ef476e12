#include "check/PageCheck.h"

#include "pdf/PageContent.h"
#include "text/Numbers.h"
#include "text/ShortText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace linealis {

namespace {

constexpr double tolerance = 0.5;                         // points that a line or text may reach over an edge
constexpr std::size_t mostTexts = 2000;                   // that are looked at
constexpr std::size_t mostLines = std::size_t{1} << 20U;  // that are looked for under titles

/// Points of the page.
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

/// The mean width of a character as a share of the text size: exact for Courier, that of digits for the others.
double CharacterWidth(int font)
{
    constexpr double ofCourier = 0.6, ofHelvetica = 0.556, ofTimes = 0.5;
    return font <= 4 ? ofCourier : font <= 8 ? ofHelvetica : ofTimes;
}

/// Whether a straight line runs through the box.
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

/// Single characters are parts of a text on a circle. Numbers may be multiples of pi: "-3PI/2".
bool IsTitle(std::string_view text)
{
    const bool isMultipleOfPi = text.find("PI") != std::string_view::npos &&
                                text.find_first_not_of("-0123456789/PI") == std::string_view::npos;
    return text.size() > 1 && !isMultipleOfPi && !IsNumber(text);
}

/// Collects the texts and the straight lines, and looks at each line by itself.
class TextAndLineReader final : public PageSink {
public:
    explicit TextAndLineReader(const PageFrame& frame)
        : paper{0.0, 0.0, static_cast<double>(frame.paperWidth), static_cast<double>(frame.paperHeight)}
    {}

    Box paper;
    std::vector<PlacedText> texts;
    std::vector<StraightLine> lines;  ///< the first of them
    bool isEmpty = true;              ///< whether nothing at all is to be seen
    double largestNumber = 0.0;       ///< of a line, whatever its sign
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
    /// The background is the one fill before anything is drawn, and no page is only filled.
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
    /// A stroke without one is not painted, unless its ends are round or square.
    static bool HasLength(PagePath path)
    {
        return std::any_of(path.begin(), path.end(), [&](const PathSegment& segment) {
            return segment.operation == PageOperator::Curve || segment.to.x != path.front().to.x ||
                   segment.to.y != path.front().to.y;
        });
    }

    Point OnPaper(const Point& point) const { return {point.x * scaleX, point.y * scaleY}; }

    PlacedText Place(const PageText& text) const
    {
        constexpr double ascent = 0.7, descent = 0.05;  // of digits and capitals, as a share of the size
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

std::string Quoted(const std::string& text)
{
    return "\u201C" + Shortened(text) + "\u201D";
}

/// The field that holds the text; null if none does.
const PrintedField* FieldOf(const PlacedText& text, const PaperPage& page)
{
    const auto found = std::find_if(page.printed.begin(), page.printed.end(),
                                    [&](const PrintedField& field) { return field.role == text.role; });
    return found == page.printed.end() ? nullptr : &*found;
}

std::string ControlOf(const PlacedText& text, const PaperPage& page)
{
    const PrintedField* const field = FieldOf(text, page);
    return field == nullptr ? "" : field->control;
}

void CheckPlaces(const TextAndLineReader& page, const PaperPage& read, PageWarnings& warnings)
{
    for (const bool wantsTitle : {true, false}) {
        const auto isOff = [&](const PlacedText& text) {
            return text.isTitle == wantsTitle && !text.box.IsInside(page.paper.Grown(tolerance));
        };
        const auto found = std::find_if(page.texts.begin(), page.texts.end(), isOff);
        if (found != page.texts.end()) {
            const auto count = std::count_if(page.texts.begin(), page.texts.end(), isOff);
            warnings.push_back(
                {wantsTitle ? "title-off-page" : "numbers-off-page", ControlOf(*found, read),
                 Quoted(found->text) + (count > 1 ? " and other texts leave" : " leaves") + " the page"});
        }
    }
}

/// Numbers that were written one after the other in a row or a column.
void CheckNumbers(const std::vector<PlacedText>& texts, PageWarnings& warnings)
{
    const PlacedText* overlapping = nullptr;
    const PlacedText* repeated = nullptr;
    for (std::size_t i = 1; i < texts.size(); ++i) {
        const PlacedText& before = texts[i - 1];
        const PlacedText& text = texts[i];
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
        warnings.push_back({"numbers-overlap", "", "Numbers overlap at " + Quoted(overlapping->text)});
    }
    if (repeated != nullptr) {
        warnings.push_back(
            {"numbers-repeat", "",
             "The number " + Quoted(repeated->text) + " marks several lines: the step is lost in rounding"});
    }
}

void CheckLines(const TextAndLineReader& page, PageWarnings& warnings)
{
    if (page.isEmpty) {
        warnings.push_back({"empty", "", "The page is empty"});
    }
    if (page.linesOff > 0) {
        warnings.push_back({"off-page", "",
                            Str(static_cast<double>(page.linesOff)) +
                                (page.linesOff == 1 ? " line reaches" : " lines reach") +
                                " beyond the edge of the paper"});
    }
}

void CheckSizeOfNumbers(const TextAndLineReader& page, PageWarnings& warnings)
{
    constexpr double mostOfReaders = 9.2e18;  // what 64 bits hold
    if (page.largestNumber >= mostOfReaders) {
        warnings.push_back(
            {"huge-number", "", "The page contains numbers of 9.2e18 and more, which many readers cannot read"});
    }
}

void CheckTitles(const TextAndLineReader& page, const PaperPage& read, PageWarnings& warnings)
{
    for (const PlacedText& text : page.texts) {
        const PrintedField* const field = FieldOf(text, read);
        const bool isMeantSo = field != nullptr && field->coversLines && field->standsAsOpened;
        if (text.isTitle && !isMeantSo &&
            std::any_of(page.lines.begin(), page.lines.end(),
                        [&](const StraightLine& line) { return Crosses(line, text.box); })) {
            warnings.push_back(
                {"title-over-lines", ControlOf(text, read), Quoted(text.text) + " overlaps grid lines"});
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
        warnings.push_back({"damaged", "", "The page is damaged: " + damage.message});
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
