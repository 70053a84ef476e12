#include "core/DisplayList.h"

namespace linealis::web {

void DisplayList::Add(const PageColor& color)
{
    Add(color.red);
    Add(color.green);
    Add(color.blue);
}

void DisplayList::Add(PagePath path)
{
    const std::size_t count = numbers.size();
    Add(0.0);
    for (const PathSegment& segment : path) {
        if (segment.operation == PageOperator::Curve) {
            for (const double number :
                 {2.0, segment.control1.x, segment.control1.y, segment.control2.x, segment.control2.y}) {
                Add(number);
            }
        } else {
            Add(segment.operation == PageOperator::Move ? 0.0 : 1.0);
        }
        Add(segment.to.x);
        Add(segment.to.y);
    }
    numbers[count] = static_cast<float>(numbers.size() - count - 1);
    countOfLines = 0;
}

void DisplayList::SetPen(const PagePen& pen)
{
    if (hasPen && pen == lastPen) {
        return;
    }
    Add(DisplayCode::Pen);
    Add(pen.width);
    Add(pen.color);
    for (const double number : {static_cast<double>(pen.cap), pen.dashOn, pen.dashOff, pen.dashPhase}) {
        Add(number);
    }
    lastPen = pen;
    hasPen = true;
    countOfLines = 0;
}

bool DisplayList::Scale(double sx, double sy)
{
    Add(DisplayCode::Scale);
    Add(sx);
    Add(sy);
    countOfLines = 0;
    return true;
}

bool DisplayList::Stroke(PagePath path, const PagePen& pen)
{
    if (!collects) {
        return true;
    }
    SetPen(pen);
    if (path.size() != 2 || path[1].operation != PageOperator::Line) {
        Add(DisplayCode::Stroke);
        Add(path);
        return true;
    }
    if (countOfLines == 0) {
        Add(DisplayCode::Lines);
        countOfLines = numbers.size();
        Add(0.0);
    }
    numbers[countOfLines] += 1.0F;
    for (const PathSegment& segment : path) {
        Add(segment.to.x);
        Add(segment.to.y);
    }
    return true;
}

bool DisplayList::Fill(PagePath path, const PageColor& color)
{
    if (collects) {
        Add(DisplayCode::Fill);
        Add(color);
        Add(path);
    }
    return true;
}

bool DisplayList::FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen)
{
    if (collects) {
        SetPen(pen);
        Add(DisplayCode::FillStroke);
        Add(color);
        Add(path);
    }
    return true;
}

bool DisplayList::Text(const PageText& text)
{
    if (!collects) {
        return true;
    }
    Add(DisplayCode::Text);
    Add(static_cast<double>(texts.size()));
    Add(static_cast<double>(text.font));
    Add(text.size);
    for (const double number : text.matrix) {
        Add(number);
    }
    Add(text.color);
    texts.emplace_back(text.utf8);
    countOfLines = 0;
    return true;
}

std::string_view DisplayList::Bytes() const
{
    return {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(float)};
}

}  // namespace linealis::web
