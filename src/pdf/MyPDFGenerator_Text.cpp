#include "pdf/MyPDFGenerator.h"

#include "pdf/Geometry.h"
#include "text/MacRoman.h"
#include "text/Numbers.h"

#include <cmath>
#include <string>

namespace linealis {

namespace {

constexpr std::string_view matrixForm = "-00000.00000000";
constexpr double degreesOfHalfTurn = 180.0;
constexpr double fullTurn = 6.2831854;  // radians: twice the rounded pi of Geometry.h

}  // namespace

std::int64_t MyPDFGenerator::FindFont(std::string_view /*name*/, std::string_view /*encoding*/,
                                      std::int64_t /*embed*/)
{
    return 0;
}

void MyPDFGenerator::SetFont(std::int64_t number, double size)
{
    fontNum = number;
    fontSize = truncated(size);
}

double MyPDFGenerator::StringWidth(std::string_view text, std::int64_t /*font*/, std::int64_t size)
{
    return static_cast<double>(CharacterCount(text)) * 600.0 * static_cast<double>(size) / 1000.0;
}

void MyPDFGenerator::SetTextPos(double x, double y)
{
    textX = x;
    textY = y;
}

void MyPDFGenerator::AddFontLine(std::int64_t font)
{
    AddToStream("/F");
    AddLine({static_cast<double>(font), static_cast<double>(fontSize)}, "Tf");
}

void MyPDFGenerator::AddTextPositionLine()
{
    AddLine({textX, textY}, "Td");
}

void MyPDFGenerator::AddTextLine(std::string_view text)
{
    AddToStream("(" + ToMacRoman(text) + ") Tj\r");
}

void MyPDFGenerator::Show(std::string_view text)
{
    ShowFont(text, fontNum);
}

void MyPDFGenerator::ShowFont(std::string_view text, std::int64_t font)
{
    AddToStream("BT\r");
    AddFontLine(font);
    AddTextPositionLine();
    AddTextLine(text);
    AddToStream("ET\r");
}

void MyPDFGenerator::ShowRotated(std::string_view text, double angle, double x, double y)
{
    const double a = angle * pi / degreesOfHalfTurn;
    const auto matrix = [](double value) { return myformatstring(value, matrixForm) + " "; };
    AddToStream("BT\r");
    AddFontLine(fontNum);
    AddToStream(matrix(std::cos(a)) + matrix(std::sin(a)) + matrix(-std::sin(a)) + matrix(std::cos(a)) +
                mystring(x) + " " + mystring(y) + " Tm\r");
    AddTextPositionLine();
    AddTextLine(text);
    AddToStream("ET\r");
}

void MyPDFGenerator::DrawRotatedText(std::string_view text, double centerX, double centerY, double radius,
                                     double angle, std::int64_t size)
{
    DrawCircularText(text, centerX, centerY, radius, angle, size, FindFont("Helvetica-Bold", "host", 0));
}

void MyPDFGenerator::DrawRotatedTextFont(std::string_view text, double centerX, double centerY, double radius,
                                         double angle, std::int64_t size, std::int64_t font)
{
    DrawCircularText(text, centerX, centerY, radius, angle, size, font);
}

void MyPDFGenerator::DrawCircularText(std::string_view text, double centerX, double centerY, double radius,
                                      double angle, std::int64_t size, std::int64_t font)
{
    SetFont(font, static_cast<double>(size));
    const auto count = static_cast<double>(CharacterCount(text));
    const double width = StringWidth(text, font, size);
    const double anglePerCharacter = 360.0 * (width / count) / (fullTurn * radius);
    double a = angle + anglePerCharacter * count * 0.5;
    for (const std::string_view character : Characters(text)) {
        SetTextPos(0.0, radius);
        ShowRotated(character, a, centerX, centerY);
        a -= anglePerCharacter;
        turns.RuntimeBackgroundTask();
    }
}

void MyPDFGenerator::AddCirclePath(double x, double y, double r)
{
    // Each quadrant is a Bézier curve. Its control points lie on the tangents, at 4/3 (sqrt(2) - 1) times the
    // radius from the ends.
    const double k = 0.5522847498 * r;
    const auto pointAt = [&](double t) { return Point{std::sin(t) * r + x, std::cos(t) * r + y}; };
    const auto quadrant = [&](double t0, double t1, Point offset0, Point offset1) {
        const Point start = pointAt(t0);
        const Point end = pointAt(t1);
        AddLine({start.x, start.y}, "m");
        AddLine({start.x + offset0.x, start.y + offset0.y, end.x + offset1.x, end.y + offset1.y, end.x, end.y},
                "c");
    };
    quadrant(0.0, pi * 1.0 / 2.0, {k, 0.0}, {0.0, k});
    quadrant(pi * 1.0 / 2.0, pi * 2.0 / 2.0, {0.0, -k}, {k, 0.0});
    quadrant(pi * 2.0 / 2.0, pi * 3.0 / 2.0, {-k, 0.0}, {0.0, -k});
    quadrant(pi * 3.0 / 2.0, pi * 4.0 / 2.0, {0.0, k}, {-k, 0.0});
}

void MyPDFGenerator::DrawCircle(double x, double y, double r)
{
    AddCirclePath(x, y, r);
    AddToStream(" S\r");
}

void MyPDFGenerator::FillCircle(double x, double y, double r)
{
    AddCirclePath(x, y, r);
    AddToStream(" B\r");
}

void MyPDFGenerator::FillRectRotated(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2,
                                     double angle)
{
    const auto left = static_cast<double>(x1);
    const auto bottom = static_cast<double>(y1);
    const auto right = static_cast<double>(x2);
    const auto top = static_cast<double>(y2);
    const Point center = FindCenterOfTwoPoints(left, bottom, right, top);
    const double w = std::fabs(right - left);
    const double h = std::fabs(top - bottom);
    const double radius = std::sqrt(w * w / 4.0 + h * h / 4.0);
    const double a = pi * angle / degreesOfHalfTurn;
    const auto corner = [&](double dx, double dy) {
        const double t = std::atan2(dy, dx) + a;
        return Point{radius * std::cos(t) + center.x, radius * std::sin(t) + center.y};
    };
    const Point first = corner(-w / 2.0, h / 2.0);
    const Point second = corner(-w / 2.0, -h / 2.0);
    const Point third = corner(w / 2.0, -h / 2.0);
    const Point fourth = corner(w / 2.0, h / 2.0);
    MoveTo(first.x, first.y);
    LineTo(second.x, second.y);
    LineTo(third.x, third.y);
    LineTo(fourth.x, fourth.y);
    LineTo(first.x, first.y);
    AddToStream(" f\r");
}

void MyPDFGenerator::HandleInTextMode()
{
    if (!inTextMode) {
        AddToStream("BT\r");
        inTextMode = true;
        AddFontLine(fontNum);
    }
}

void MyPDFGenerator::HandleOutTextMode()
{
    if (inTextMode) {
        AddToStream("ET\r");
        inTextMode = false;
    }
}

}  // namespace linealis
