#include "papers/DiagonalWindow.h"

#include "pipeline/Fitting.h"

namespace linealis {

namespace {

const ControlTable& OwnControls()
{
    static const ControlTable table =
        CellSizeControls({textField("EditLineThickness", "Line Weight:", ".3").Means(Meaning::Weight),
                          textField("EditMinorLineThickness", "Minor Line Weight:", ".15").Means(Meaning::Weight)},
                         {checkBox("CheckBoxHorizontal", "Horizontal Lines", true),
                          checkBox("CheckBoxVertical", "Vertical Lines", true)});
    return table;
}

const SettingsTable& Settings()
{
    static const SettingsTable table =
        CellSizeSettings({settings::box("CheckBoxVertical"), settings::box("CheckBoxHorizontal")});
    return table;
}

}  // namespace

DiagonalWindow::DiagonalWindow(Platform& thePlatform, const FileType& typeOfSettings)
    : CellSizeWindow(thePlatform, OwnControls(), Settings(), typeOfSettings)
{}

double DiagonalWindow::Repeat(double start, double limit, double step, const Draw& draw)
{
    double position = start;
    while (step > 0.0 && position <= limit) {
        draw(position);
        RuntimeBackgroundTask();
        if (!Advances(position, step)) {
            break;
        }
        position += step;
    }
    return position;
}

void DiagonalWindow::Clip(double x1, double y1, double x2, double y2)
{
    pdf.ClipLine(x1, y1, x2, y2, leftMargin, bottomMargin, usableWidth, usableHeight);
}

void DiagonalWindow::DoGraph()
{
    MeasureUsableArea();
    const Pattern pattern = Measure();
    pdf.SetLineWidth(minorLineThickness);
    DrawFrame();
    pdf.SetLineWidth(LineThickness);
    DrawDiagonals(pattern);
    pdf.SetLineWidth(minorLineThickness);
    DrawVerticalsAndHorizontals(pattern);
}

void DiagonalWindow::DrawDiagonals(const Pattern& pattern)
{
    const double left = leftMargin;
    const double right = leftMargin + usableWidth;
    const double bottom = bottomMargin;
    const double slope = pattern.slope;
    const double rise = slope * usableWidth;
    Repeat(pattern.xStep, usableWidth, pattern.xAdvance,
           [&](double x) { Clip(left + x, bottom, right, bottom + slope * (usableWidth - x)); });
    Repeat(pattern.yStep, usableHeight, pattern.yAdvance,
           [&](double y) { Clip(left, bottom + y, right, (bottom + y) + rise); });
    const double x = Repeat(pattern.xStep, usableWidth, pattern.xAdvance, [&](double position) {
        Clip(left + position, bottom, left, bottom + slope * position);
    });
    Repeat(HeightOnRightEdge(pattern, x), usableHeight, pattern.yAdvance,
           [&](double y) { Clip(right, bottom + y, left, (bottom + y) + rise); });
}

void DiagonalWindow::DrawVerticalsAndHorizontals(const Pattern& pattern)
{
    const double right = leftMargin + usableWidth;
    const double top = bottomMargin + usableHeight;
    if (form.Value("CheckBoxVertical")) {
        Repeat(pattern.xStep, usableWidth, pattern.xAdvance,
               [&](double x) { StrokeLine(leftMargin + x, bottomMargin, leftMargin + x, top); });
    }
    if (form.Value("CheckBoxHorizontal")) {
        Repeat(pattern.yStep, usableHeight, pattern.yAdvance,
               [&](double y) { StrokeLine(leftMargin, bottomMargin + y, right, bottomMargin + y); });
    }
}

}  // namespace linealis
