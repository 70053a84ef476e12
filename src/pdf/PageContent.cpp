#include "pdf/PageContent.h"

#include "text/Numbers.h"

#include <cmath>

namespace linealis {

namespace {

/// Returns the text from a character up to another one.
std::string_view Between(const char* from, const char* upTo)
{
    return {from, static_cast<std::size_t>(upTo - from)};
}

enum class Takes : std::uint8_t { Numbers, FontName, Dash, Text };

struct OperatorForm {
    std::string_view word;
    PageOperator operation;
    std::size_t operands;
    Takes takes = Takes::Numbers;
};

/// The most frequent operators come first.
constexpr std::array<OperatorForm, 18> operatorForms = {{
    {"m", PageOperator::Move, 2},
    {"l", PageOperator::Line, 2},
    {"S", PageOperator::Stroke, 0},
    {"c", PageOperator::Curve, 6},
    {"w", PageOperator::LineWidth, 1},
    {"RG", PageOperator::StrokeColor, 3},
    {"rg", PageOperator::FillColor, 3},
    {"B", PageOperator::FillAndStroke, 0},
    {"f", PageOperator::Fill, 0},
    {"BT", PageOperator::BeginText, 0},
    {"Tf", PageOperator::Font, 2, Takes::FontName},
    {"Tm", PageOperator::TextMatrix, 6},
    {"Td", PageOperator::TextPosition, 2},
    {"Tj", PageOperator::ShowText, 0, Takes::Text},
    {"ET", PageOperator::EndText, 0},
    {"J", PageOperator::LineCap, 1},
    {"d", PageOperator::Dash, 3, Takes::Dash},
    {"cm", PageOperator::Scale, 6},
}};

bool IsOctal(char c)
{
    return c >= '0' && c <= '7';
}

/// Reads digits with at most one decimal point at `from` and sets `value` to the nearest double. Returns the end of
/// the digits, or `from` if there is no digit or a double cannot hold the number.
const char* ReadDigits(const char* from, const char* end, double& value)
{
    std::uint64_t digits = 0;
    const char* at = from;
    const char* point = nullptr;
    for (; at != end && (IsDigit(*at) || (*at == '.' && point == nullptr)); ++at) {
        if (*at == '.') {
            point = at;
        } else {
            digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
        }
    }
    const std::ptrdiff_t length = at - from - (point == nullptr ? 0 : 1);
    if (length == 0) {
        return from;
    }
    if (length < static_cast<std::ptrdiff_t>(powersOfTen.size())) {
        // Both operands are exact, so the single division rounds correctly.
        const std::ptrdiff_t decimals = point == nullptr ? 0 : at - point - 1;
        value = static_cast<double>(digits) / powersOfTen[static_cast<std::size_t>(decimals)];
        return at;
    }
    const std::string_view text(from, static_cast<std::size_t>(at - from));
    value = Val(text);
    return IsNumber(text) ? at : from;
}

}  // namespace

bool PageReader::Fail(const char* why)
{
    problem = why;
    return false;
}

bool PageReader::Next()
{
    while (next != end && !IsDamaged()) {
        line += 1 + linesInText;
        linesInText = 0;
        lineStart = next;
        SkipBlanks();
        const bool isEmpty = AtLineEnd();
        const bool isRead = !isEmpty && ReadLine();
        lineEnd = next;
        next += next != end ? 1 : 0;
        if (!isEmpty) {
            return isRead;
        }
    }
    return false;
}

void PageReader::SkipBlanks()
{
    while (next != end && *next == ' ') {
        ++next;
    }
}

bool PageReader::ReadLine()
{
    count = 0;
    hasText = hasFontName = hasDash = false;
    while (!AtLineEnd()) {
        const char c = *next;
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
            return ReadOperator();
        }
        if (!ReadOperand()) {
            return false;
        }
        SkipBlanks();
    }
    return Fail("the operator is missing");
}

bool PageReader::ReadOperand()
{
    switch (*next) {
    case '/':
        return ReadFontName();
    case '[':
        return ReadDash();
    case '(':
        return ReadText();
    default:
        return ReadNumber();
    }
}

bool PageReader::ReadNumber()
{
    const bool negative = *next == '-';
    const char* const digits = next + (negative ? 1 : 0);
    double value = 0.0;
    next = ReadDigits(digits, end, value);
    if (next == digits) {
        return Fail("the number is malformed");
    }
    if (count == mostOperands) {
        return Fail("too many operands");
    }
    operands[count++] = negative ? -value : value;
    return true;
}

bool PageReader::ReadFontName()
{
    constexpr double highestFont = 14;
    if (hasFontName || count != 0 || end - next < 3 || next[1] != 'F' || !IsDigit(next[2])) {
        return Fail("the font name is malformed");
    }
    next += 2;
    hasFontName = true;
    if (!ReadNumber()) {
        return false;
    }
    const bool exists = operands[0] <= highestFont && std::trunc(operands[0]) == operands[0];
    return exists || Fail("the font does not exist");
}

bool PageReader::ReadDash()
{
    if (hasDash || count != 0) {
        return Fail("the dash pattern is malformed");
    }
    ++next;
    hasDash = true;
    for (SkipBlanks(); !AtLineEnd() && *next != ']'; SkipBlanks()) {
        if (!ReadNumber()) {
            return false;
        }
    }
    if (AtLineEnd() || (count != 0 && count != 2)) {
        return Fail("the dash pattern is malformed");
    }
    ++next;
    if (count == 0) {
        operands[0] = operands[1] = 0.0;
        count = 2;
    }
    return true;
}

bool PageReader::ReadText()
{
    if (hasText || count != 0) {
        return Fail("the text is malformed");
    }
    const char* const start = ++next;
    for (int depth = 1; next != end; ++next) {
        if (*next == '(') {
            ++depth;
        } else if (*next == ')' && --depth == 0) {
            text = Between(start, next++);
            hasText = true;
            SkipShownNothing();
            return true;
        } else if (*next == '\\' && next + 1 != end) {
            ++next;
        }
        linesInText += *next == '\r' ? 1 : 0;
    }
    return Fail("the text is not closed");
}

/// Handles the rest of a line after a text that is closed too early: the rest is not an operator, so readers show
/// nothing of the text.
void PageReader::SkipShownNothing()
{
    constexpr std::string_view shows = " Tj";
    const std::string_view rest = Between(next, end);
    const std::string_view restOfLine = rest.substr(0, rest.find('\r'));
    if (restOfLine.size() > shows.size() && restOfLine.ends_with(shows)) {
        text = {};
        next += restOfLine.size() - shows.size();
    }
}

bool PageReader::ReadOperator()
{
    const char* const start = next;
    while (!AtLineEnd() && *next != ' ') {
        ++next;
    }
    const std::string_view word = Between(start, next);
    SkipBlanks();
    if (!AtLineEnd()) {
        return Fail("unexpected text after the operator");
    }
    for (const OperatorForm& form : operatorForms) {
        if (form.word == word) {
            operation = form.operation;
            const bool fits = form.operands == count && hasText == (form.takes == Takes::Text) &&
                              hasFontName == (form.takes == Takes::FontName) &&
                              hasDash == (form.takes == Takes::Dash);
            return fits || Fail("the operator has the wrong operands");
        }
    }
    return Fail("the operator is unknown");
}

std::string PageString(std::string_view text)
{
    constexpr std::string_view letters = "nrtbf";
    constexpr std::string_view meanings = "\n\r\t\b\f";
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escaped = text[i] == '\\' && i + 1 < text.size();
        i += escaped ? 1U : 0U;
        const char c = text[i];
        if (c == '\r' || c == '\n') {
            i += c == '\r' && text.substr(i + 1).starts_with('\n') ? 1U : 0U;
            bytes += escaped ? "" : "\n";
        } else if (escaped && IsOctal(c)) {
            unsigned code = 0;
            for (int digits = 0; digits < 3 && i < text.size() && IsOctal(text[i]); ++digits, ++i) {
                code = code * 8 + static_cast<unsigned>(text[i] - '0');
            }
            --i;
            bytes += static_cast<char>(code);
        } else if (const std::size_t letter = letters.find(c); escaped && letter != std::string_view::npos) {
            bytes += meanings[letter];
        } else if (c != '\\' || escaped) {
            bytes += c;
        }
    }
    return bytes;
}

bool IsAlongAxes(PagePath path)
{
    for (std::size_t i = 1; i < path.size(); ++i) {
        const Point &from = path[i - 1].to, &to = path[i].to;
        const bool isSlanted = from.x != to.x && from.y != to.y;
        if (path[i].operation == PageOperator::Curve || (path[i].operation == PageOperator::Line && isSlanted)) {
            return false;
        }
    }
    return path.size() > 1;
}

}  // namespace linealis
