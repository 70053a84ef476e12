#include "papers/HexagonPaper.h"

#include "pdf/Units.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/page/Fitting.h"
#include "pipeline/page/PageWords.h"
#include "text/Numbers.h"

namespace linealis {

namespace {

/// Draws a page of hexagon paper. Fits the whole columns and rows first, and then draws every other column of
/// hexagons. The columns between them result from the joining lines.
class HexagonDrawing {
public:
    HexagonDrawing(const HexagonPage& thePage, MyPDFGenerator& thePdf, Turns& theTurns)
        : page(thePage), pdf(thePdf), turns(theTurns), area(UsableArea(thePage.frame))
    {}

    void DoGraph();

private:
    /// Both shrink the area to whole columns or rows and center it. A column is 1.5 sides wide, after a first one
    /// of 2 sides.
    void FitAcross();
    void FitUp();
    void DrawHexagons();
    /// Draws one hexagon; (x, y) is the left end of its bottom side.
    void DrawHexagon(double x, double y);
    /// Draws the horizontal lines that connect the hexagons of a row.
    void DrawJoiningLines();
    void ClipToGrid(double x1, double y1, double x2, double y2);
    /// Calls drawCell(column, yOff) for every cell, row by row from the bottom. yOff is the height of the row above
    /// the bottom of the grid.
    template <typename DrawCell>
    void ForEachCell(DrawCell drawCell);

    const HexagonPage& page;
    MyPDFGenerator& pdf;
    Turns& turns;
    Area area;  ///< the area between the margins; after fitting, the grid
    const double side = page.side;
    const double cellHeight = page.cellHeight;
    double numAcross = 0.0;       ///< whole
    double numberVertical = 0.0;  ///< whole
};

void HexagonDrawing::DoGraph()
{
    const bool canFit = side > 0.0;  // a size of 0 or less draws no pattern
    if (canFit) {
        FitAcross();
        FitUp();
    }
    pdf.SetLineWidth(page.minorLineThickness);
    if (page.drawsFrame) {
        DrawFrame(area, pdf);
    }
    pdf.SetLineWidth(page.LineThickness);
    if (canFit && numAcross >= 1.0) {
        pdf.SetRole("cell");
        DrawHexagons();
        DrawJoiningLines();
    }
}

void HexagonDrawing::FitAcross()
{
    numAcross = 1.0;
    double x = page.doubleSide;
    while (area.width >= x) {
        numAcross += 1.0;
        x = x + 1.5 * side;
        turns.RuntimeBackgroundTask();
    }
    numAcross -= 1.0;
    x = x - 1.5 * side;
    const double halfRest = (area.width - x) / 2.0;
    area.width = x;
    area.left = area.left + halfRest;
}

void HexagonDrawing::FitUp()
{
    numberVertical = static_cast<double>(truncated(area.height / cellHeight));
    const double gridHeight = cellHeight * numberVertical;
    const double halfRest = (area.height - gridHeight) / 2.0;
    area.bottom = area.bottom + halfRest;
    area.height = gridHeight;
}

void HexagonDrawing::ClipToGrid(double x1, double y1, double x2, double y2)
{
    Clip(area, x1, y1, x2, y2, pdf);
}

template <typename DrawCell>
void HexagonDrawing::ForEachCell(DrawCell drawCell)
{
    double yOff = 0.0;
    for (double row = 0.0; row < numberVertical; row += 1.0) {
        for (double column = 0.0; column < numAcross; column += 1.0) {
            drawCell(column, yOff);
            turns.RuntimeBackgroundTask();
        }
        yOff = yOff + cellHeight;
    }
}

void HexagonDrawing::DrawHexagons()
{
    ForEachCell([this](double column, double yOff) {
        // A column here is two columns of FitAcross, so the last ones are outside the grid and draw nothing.
        const double x = (side / 2.0 + column * page.doubleSide) + side * column;
        if (area.width >= x) {
            DrawHexagon(area.left + x, area.bottom + yOff);
        }
    });
}

void HexagonDrawing::DrawHexagon(double x, double y)
{
    const double right = x + side;
    const double middle = y + cellHeight / 2.0;
    const double top = y + cellHeight;
    const double farLeft = x - side / 2.0;
    const double farRight = x + (side * 3.0) / 2.0;
    ClipToGrid(x, y, right, y);
    ClipToGrid(x, y, farLeft, middle);
    ClipToGrid(farLeft, middle, x, top);
    ClipToGrid(right, y, farRight, middle);
    ClipToGrid(farRight, middle, right, top);
    ClipToGrid(x, top, right, top);
}

void HexagonDrawing::DrawJoiningLines()
{
    ForEachCell([this](double column, double yOff) {
        const double x = (column + 1.0) * page.doubleSide + column * side;
        if (area.width >= x) {
            const double y = area.bottom + yOff + cellHeight / 2.0;
            ClipToGrid(area.left + x, y, area.left + x + side, y);
        }
    });
}

}  // namespace

Message HexagonForm::WhyIdle(const Control& control) const
{
    const CheckBox& box = outline.CheckBoxFrame;
    return &control == &minor.EditMinorLineThickness && !box.Value() ? IsOff(box) : PaperForm::WhyIdle(control);
}

SettingsTable Settings(HexagonForm& form)
{
    return CellSizeSettings(form, form.cell, form.outline);
}

HexagonPage Read(const HexagonForm& form)
{
    HexagonPage page;
    page.frame = form.ReadFrame(form.outline.BackgroundColorCanvas, &form.outline.LineColorCanvas);
    const double size = form.cell.EditSize.Used();
    page.side = size * page.frame.unitPixels;
    page.doubleSide = (2.0 * size) * page.frame.unitPixels;
    page.cellHeight = (size * (2.0 * cosine30)) * page.frame.unitPixels;
    page.LineThickness = form.cell.EditLineThickness.Used();
    page.minorLineThickness = form.minor.EditMinorLineThickness.Used();
    page.drawsFrame = form.outline.CheckBoxFrame.Value();
    return page;
}

void Draw(const HexagonPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    HexagonDrawing(page, pdf, turns).DoGraph();
}

Message Describe(const HexagonPage& page)
{
    const Area room = UsableArea(page.frame);
    const bool canFit = page.side > 0.0;
    const double across = canFit ? Positions(page.doubleSide, room.width, 1.5 * page.side) : 0.0;
    const double up = canFit ? static_cast<double>(truncated(room.height / page.cellHeight)) : 0.0;
    return Message("%1, side %2, %3 across flats",
                   CountWords(across, up, {Plural("%1 by %2 hexagon", "%1 by %2 hexagons"), Phrase("no hexagons")}),
                   LengthWords(page.side, page.frame), LengthWords(page.cellHeight, page.frame));
}

}  // namespace linealis
