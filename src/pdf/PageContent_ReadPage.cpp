#include "pdf/PageContent.h"

#include "text/MacRoman.h"

#include <algorithm>
#include <optional>

namespace linealis {

namespace {

/// Tracks the graphics state of a page and passes finished strokes, fills, and texts to a sink.
class Interpreter {
public:
    explicit Interpreter(PageSink& theSink) : sink(theSink) {}

    /// Applies an operator. Returns whether to go on, or nothing if the operator is not allowed here.
    std::optional<bool> Do(const PageReader& reader);

private:
    void AddSegment(PageOperator operation, std::span<const double> at);
    std::optional<bool> Paint(PageOperator operation);
    std::optional<bool> SetScale(std::span<const double> matrix);
    std::optional<bool> DoText(const PageReader& reader);
    bool Show(std::string_view source);
    void SetState(PageOperator operation, std::span<const double> values);

    PageSink& sink;
    PagePen pen;
    PageColor fill;
    double scaleX = 1.0;
    double scaleY = 1.0;
    std::vector<PathSegment> path;
    bool inText = false;
    std::string bytes;
    std::string utf8;
    PageText text;
};

std::optional<bool> Interpreter::Do(const PageReader& reader)
{
    const PageOperator operation = reader.Operator();
    switch (operation) {
    case PageOperator::Line:
    case PageOperator::Curve:
        if (path.empty()) {
            return std::nullopt;
        }
        [[fallthrough]];
    case PageOperator::Move:
        AddSegment(operation, reader.Operands());
        return true;
    case PageOperator::Stroke:
    case PageOperator::Fill:
    case PageOperator::FillAndStroke:
        return Paint(operation);
    case PageOperator::Scale:
        return SetScale(reader.Operands());
    case PageOperator::BeginText:
    case PageOperator::EndText:
    case PageOperator::TextMatrix:
    case PageOperator::TextPosition:
    case PageOperator::ShowText:
        return DoText(reader);
    default:
        SetState(operation, reader.Operands());
        return true;
    }
}

void Interpreter::AddSegment(PageOperator operation, std::span<const double> at)
{
    if (operation == PageOperator::Curve) {
        path.push_back({operation, {at[4], at[5]}, {at[0], at[1]}, {at[2], at[3]}});
    } else {
        path.push_back({operation, {at[0], at[1]}});
    }
}

std::optional<bool> Interpreter::Paint(PageOperator operation)
{
    if (path.empty()) {
        return std::nullopt;
    }
    const bool goOn = operation == PageOperator::Stroke ? sink.Stroke(path, pen)
                      : operation == PageOperator::Fill ? sink.Fill(path, fill)
                                                        : sink.FillAndStroke(path, fill, pen);
    path.clear();
    return goOn;
}

std::optional<bool> Interpreter::SetScale(std::span<const double> matrix)
{
    if (matrix[1] != 0.0 || matrix[2] != 0.0 || matrix[4] != 0.0 || matrix[5] != 0.0 || !path.empty()) {
        return std::nullopt;
    }
    scaleX *= matrix[0];
    scaleY *= matrix[3];
    return sink.Scale(scaleX, scaleY);
}

std::optional<bool> Interpreter::DoText(const PageReader& reader)
{
    const std::span<const double> values = reader.Operands();
    auto& [a, b, c, d, e, f] = text.matrix;
    if (inText == (reader.Operator() == PageOperator::BeginText) || !path.empty()) {
        return std::nullopt;
    }
    switch (reader.Operator()) {
    case PageOperator::BeginText:
        text.matrix = {1.0, 0.0, 0.0, 1.0, 0.0, 0.0};
        [[fallthrough]];
    case PageOperator::EndText:
        inText = !inText;
        return true;
    case PageOperator::TextMatrix:
        std::copy(values.begin(), values.end(), text.matrix.begin());
        return true;
    case PageOperator::TextPosition:
        e += values[0] * a + values[1] * c;
        f += values[0] * b + values[1] * d;
        return true;
    default:
        return Show(reader.Text());
    }
}

bool Interpreter::Show(std::string_view source)
{
    bytes = PageString(source);
    utf8 = FromMacRoman(bytes);
    text.bytes = bytes;
    text.utf8 = utf8;
    text.color = fill;
    return sink.Text(text);
}

void Interpreter::SetState(PageOperator operation, std::span<const double> values)
{
    if (operation == PageOperator::StrokeColor) {
        pen.color = {values[0], values[1], values[2]};
    } else if (operation == PageOperator::FillColor) {
        fill = {values[0], values[1], values[2]};
    } else if (operation == PageOperator::LineWidth) {
        pen.width = values[0];
    } else if (operation == PageOperator::LineCap) {
        pen.cap = static_cast<int>(std::clamp(values[0], 0.0, 2.0));
    } else if (operation == PageOperator::Dash) {
        pen.dashOn = values[0];
        pen.dashOff = values[1];
        pen.dashPhase = values[2];
    } else {
        text.font = static_cast<int>(values[0]);
        text.size = values[1];
    }
}

}  // namespace

PageDamage ReadPage(std::string_view content, PageSink& sink, Turns* turns)
{
    return ReadPage(content, {}, sink, turns);
}

PageDamage ReadPage(std::string_view content, std::span<const RoleRange> roles, PageSink& sink, Turns* turns)
{
    PageReader reader(content);
    Interpreter interpreter(sink);
    if (turns != nullptr) {
        turns->Restart();
    }
    while (reader.Next()) {
        if (turns != nullptr) {
            turns->RuntimeBackgroundTask();
        }
        const auto place = static_cast<std::size_t>(reader.Source().data() - content.data());
        for (; !roles.empty() && roles.front().begin <= place; roles = roles.subspan(1)) {
            sink.BeginRole(roles.front().role);
        }
        const std::optional<bool> goOn = interpreter.Do(reader);
        if (!goOn) {
            return {reader.Line(), "the operator is not allowed here"};
        }
        if (!*goOn) {
            return {};
        }
    }
    return {reader.IsDamaged() ? reader.Line() : 0, reader.Problem()};
}

}  // namespace linealis
