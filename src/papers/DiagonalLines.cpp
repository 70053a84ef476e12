#include "papers/DiagonalLines.h"

#include "pipeline/page/Fitting.h"

namespace linealis {

namespace {

/// Draws the line families of a pattern in the area between the margins.
class DiagonalDrawing {
public:
    DiagonalDrawing(const DiagonalPage& page, const DiagonalPattern& thePattern, MyPDFGenerator& thePdf,
                    Turns& theTurns)
        : area(UsableArea(page.frame)), pattern(thePattern), pdf(thePdf), turns(theTurns)
    {}

    void DrawDiagonals(HeightOnRightEdge heightOnRightEdge);
    void DrawVerticals();
    void DrawHorizontals();

private:
    /// Calls drawAt at every position from `start` to `limit`, both included, and returns the first position
    /// beyond. Draws nothing if the step is 0 or less, and stops early if it is too small to change the position.
    template <typename DrawAt>
    double Repeat(double start, double limit, double step, DrawAt drawAt);

    Area area;
    const DiagonalPattern& pattern;
    MyPDFGenerator& pdf;
    Turns& turns;
    const double left = area.left;
    const double bottom = area.bottom;
    const double right = area.Right();
};

template <typename DrawAt>
double DiagonalDrawing::Repeat(double start, double limit, double step, DrawAt drawAt)
{
    double position = start;
    while (step > 0.0 && position <= limit) {
        drawAt(position);
        turns.RuntimeBackgroundTask();
        if (!Advances(position, step)) {
            break;
        }
        position += step;
    }
    return position;
}

void DiagonalDrawing::DrawDiagonals(HeightOnRightEdge heightOnRightEdge)
{
    const double slope = pattern.slope;
    const double rise = slope * area.width;
    pdf.SetRole("grid.rising");
    Repeat(pattern.xStep, area.width, pattern.xAdvance,
           [&](double x) { Clip(area, left + x, bottom, right, bottom + slope * (area.width - x), pdf); });
    Repeat(pattern.yStep, area.height, pattern.yAdvance,
           [&](double y) { Clip(area, left, bottom + y, right, (bottom + y) + rise, pdf); });
    pdf.SetRole("grid.falling");
    // The first falling line that misses the bottom edge meets the right edge; the family continues from there.
    const double x = Repeat(pattern.xStep, area.width, pattern.xAdvance, [&](double position) {
        Clip(area, left + position, bottom, left, bottom + slope * position, pdf);
    });
    Repeat(heightOnRightEdge(pattern, x - area.width), area.height, pattern.yAdvance,
           [&](double y) { Clip(area, right, bottom + y, left, (bottom + y) + rise, pdf); });
}

void DiagonalDrawing::DrawVerticals()
{
    pdf.SetRole("grid.vertical");
    Repeat(pattern.xStep, area.width, pattern.xAdvance,
           [&](double x) { pdf.StrokeLine(left + x, bottom, left + x, area.Top()); });
}

void DiagonalDrawing::DrawHorizontals()
{
    pdf.SetRole("grid.horizontal");
    Repeat(pattern.yStep, area.height, pattern.yAdvance,
           [&](double y) { pdf.StrokeLine(left, bottom + y, right, bottom + y); });
}

}  // namespace

DiagonalForm::DiagonalForm()
    : cell{*this, "line-weight-of-the-slanted-lines", ".3", "slanted lines", {"grid.rising", "grid.falling"}},
      minor{*this,
            "minor-line-weight-of-the-frame-the-vertical-and-the-horizontal-lines",
            "frame, the vertical and the horizontal lines",
            {"frame", "grid.vertical", "grid.horizontal"}},
      CheckBoxHorizontal{*this,
                         Group::Lines,
                         "CheckBoxHorizontal",
                         "horizontal-lines",
                         "Horizontal Lines",
                         true,
                         {.governs = {"grid.horizontal"}}},
      CheckBoxVertical{*this,
                       Group::Lines,
                       "CheckBoxVertical",
                       "vertical-lines",
                       "Vertical Lines",
                       true,
                       {.governs = {"grid.vertical"}}},
      outline{*this}
{}

SettingsTable Settings(DiagonalForm& form)
{
    return CellSizeSettings(form, form.cell, form.outline,
                            {settings::box(form.CheckBoxVertical), settings::box(form.CheckBoxHorizontal)});
}

Message DiagonalForm::WhyIdle(const Control& control) const
{
    const bool drawsMinor = outline.CheckBoxFrame.Value() || CheckBoxHorizontal.Value() || CheckBoxVertical.Value();
    return &control == &minor.EditMinorLineThickness && !drawsMinor ? Message("everything it sets is off")
                                                                    : PaperForm::WhyIdle(control);
}

DiagonalPage ReadDiagonal(const DiagonalForm& form)
{
    DiagonalPage page;
    page.frame = form.ReadFrame(form.outline.BackgroundColorCanvas, &form.outline.LineColorCanvas);
    page.size = form.cell.EditSize.Used() * page.frame.unitPixels;
    page.LineThickness = form.cell.EditLineThickness.Used();
    page.minorLineThickness = form.minor.EditMinorLineThickness.Used();
    page.drawsFrame = form.outline.CheckBoxFrame.Value();
    page.drawsVerticals = form.CheckBoxVertical.Value();
    page.drawsHorizontals = form.CheckBoxHorizontal.Value();
    return page;
}

void DrawDiagonal(const DiagonalPage& page, const DiagonalPattern& pattern, HeightOnRightEdge heightOnRightEdge,
                  MyPDFGenerator& pdf, Turns& turns)
{
    DiagonalDrawing drawing(page, pattern, pdf, turns);
    pdf.SetLineWidth(page.minorLineThickness);
    if (page.drawsFrame) {
        DrawFrame(UsableArea(page.frame), pdf);
    }
    pdf.SetLineWidth(page.LineThickness);
    drawing.DrawDiagonals(heightOnRightEdge);
    pdf.SetLineWidth(page.minorLineThickness);
    if (page.drawsVerticals) {
        drawing.DrawVerticals();
    }
    if (page.drawsHorizontals) {
        drawing.DrawHorizontals();
    }
}

}  // namespace linealis
