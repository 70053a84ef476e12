#include "pdf/MyPDFGenerator.h"

#include "text/Numbers.h"

#include <algorithm>

namespace linealis {

namespace {

constexpr double channelMaximum = 255.0;
constexpr std::string_view colorForm = "0.00";
constexpr std::string_view scaleForm = "0.00000";

}  // namespace

void MyPDFGenerator::AddToStream(std::string_view text)
{
    streamC.AppendString(text);
    LimitStream();
}

void MyPDFGenerator::AddLine(std::initializer_list<double> operands, std::string_view operation)
{
    // Write in place: pages with many strokes spend nearly all their time here.
    constexpr std::size_t longestOperand = longestPlainNumber + 1;
    char* end = streamC.Room(static_cast<std::int64_t>(operands.size() * longestOperand + operation.size() + 1));
    for (const double operand : operands) {
        end = WritePlainNumber(end, operand);
        *end++ = ' ';
    }
    end = std::copy(operation.begin(), operation.end(), end);
    *end++ = '\r';
    streamC.TakeIn(end);
    LimitStream();
}

void MyPDFGenerator::LimitStream() const
{
    if (streamC.Length() > mostStream) {
        throw PageTooLarge{{Phrase("the page would need more than 1 GiB of drawing data, so it was abandoned")}};
    }
}

void MyPDFGenerator::SetRGBColor(double red, double green, double blue)
{
    const std::string channels = myformatstring(red, colorForm) + " " + myformatstring(green, colorForm) + " " +
                                 myformatstring(blue, colorForm);
    AddToStream(channels + " RG\r");
    AddToStream(channels + " rg\r");
}

void MyPDFGenerator::SetRGBColor(Color color)
{
    SetRGBColor(color.red / channelMaximum, color.green / channelMaximum, color.blue / channelMaximum);
}

void MyPDFGenerator::SetLineWidth(double width)
{
    AddLine({width}, "w");
}

void MyPDFGenerator::SetLineCap(double cap)
{
    AddLine({cap}, "J");
}

void MyPDFGenerator::MoveTo(double x, double y)
{
    AddLine({x, y}, "m");
}

void MyPDFGenerator::LineTo(double x, double y)
{
    AddLine({x, y}, "l");
}

void MyPDFGenerator::Stroke()
{
    AddToStream("S\r");
}

void MyPDFGenerator::Scale(double sx, double sy)
{
    // Two blanks before the last two zeros, as in existing pages.
    AddToStream(myformatstring(sx, scaleForm) + " 0 0 " + myformatstring(sy, scaleForm) + " " + " 0 0 cm\r");
}

void MyPDFGenerator::SetDash(std::int64_t on, std::int64_t off, std::int64_t phase)
{
    if (on == 0 && off == 0) {
        AddToStream("[ ] 0 d\r");
        return;
    }
    AddToStream("[" + std::to_string(on) + " " + std::to_string(off) + "] " + std::to_string(phase) + " d\r");
}

void MyPDFGenerator::FillRect(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2)
{
    const auto left = static_cast<double>(x1);
    const auto bottom = static_cast<double>(y1);
    const auto right = static_cast<double>(x2);
    const auto top = static_cast<double>(y2);
    MoveTo(left, bottom);
    LineTo(right, bottom);
    LineTo(right, top);
    LineTo(left, top);
    LineTo(left, bottom);
    AddToStream(" f\r");
}

void MyPDFGenerator::SetBackgroundColor(double red, double green, double blue)
{
    if (red == 1.0 && green == 1.0 && blue == 1.0) {
        return;
    }
    SetRGBColor(red, green, blue);
    FillRect(0, 0, pageWidth, pageHeight);
}

void MyPDFGenerator::SetBackgroundColor(Color color)
{
    SetBackgroundColor(color.red / channelMaximum, color.green / channelMaximum, color.blue / channelMaximum);
}

void MyPDFGenerator::StrokeLine(double x1, double y1, double x2, double y2)
{
    MoveTo(x1, y1);
    LineTo(x2, y2);
    Stroke();
}

}  // namespace linealis
