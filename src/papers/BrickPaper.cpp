#include "papers/BrickPaper.h"

#include "pipeline/page/PageWords.h"
#include "text/Numbers.h"

namespace linealis {

namespace {

/// Draws the joint at a column of a row, from 0. In odd rows, joints are at both ends too. In even rows, they are
/// half a brick further to the right, and there is one fewer.
void DrawJoint(const CellGrid& grid, double row, double column, MyPDFGenerator& pdf)
{
    const bool oddCourse = truncated(row) % 2 != 0;
    if (!oddCourse && column >= grid.columns) {
        return;
    }
    const double x = oddCourse ? grid.ColumnX(column) : grid.ColumnX(column) + grid.horzSpacing / 2.0;
    pdf.StrokeLine(x, grid.RowY(row), x, grid.RowY(row + 1.0));
}

}  // namespace

SettingsTable Settings(BrickForm& form)
{
    using namespace settings;
    // The same fields as grid paper. The two check boxes that this kind lacks are stored as on.
    return Concatenate({
        Head(form),
        {text(form.EditHorzSpacing), text(form.EditVertSpacing)},
        Margins(form),
        {box(form.CheckBoxViewGraph), fileReference(), color(form.LinesColorCanvas), fixed("1"), fixed("1"),
         text(form.EditHorzWeight), text(form.EditVertWeight), inverseColor(form.BackgroundColorCanvas)},
    });
}

BrickPage Read(const BrickForm& form)
{
    BrickPage page;
    page.frame = form.ReadFrame(form.BackgroundColorCanvas, nullptr);
    page.grid = FitCells(page.frame, form.EditVertSpacing, form.EditHorzSpacing);
    page.grid.horzLineWeight = form.EditHorzWeight.Used();
    page.grid.vertLineWeight = form.EditVertWeight.Used();
    page.linesColor = form.LinesColorCanvas.Shown();
    return page;
}

void Draw(const BrickPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    const CellGrid& grid = page.grid;
    pdf.SetRGBColor(page.linesColor);
    DrawHorizontalLines(grid, pdf, turns);
    pdf.SetRole("joint");
    pdf.SetLineWidth(grid.vertLineWeight);
    for (double row = 0.0; row < grid.rows && grid.columns >= 0.0; row += 1.0) {  // no joint is above the top line
        for (double column = 0.0; column <= grid.columns; column += 1.0) {
            DrawJoint(grid, row, column, pdf);
            turns.RuntimeBackgroundTask();
        }
        turns.RuntimeBackgroundTask();
    }
}

Message Describe(const BrickPage& page)
{
    return CellWords(page.grid, page.frame, {Plural("%1 by %2 brick", "%1 by %2 bricks"), Phrase("no bricks")});
}

}  // namespace linealis
