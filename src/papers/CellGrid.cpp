#include "papers/CellGrid.h"

#include "pipeline/page/Fitting.h"
#include "pipeline/page/PageWords.h"

namespace linealis {

SpacingFields::SpacingFields(PaperForm& form, std::string_view verticalText, std::string_view horizontalText)
    : EditVertSpacing{form,         Group::Spacing, "EditVertSpacing", "vertical-spacing", "Vertical Spacing:",
                      verticalText, vertical},
      EditHorzSpacing{
          form,           Group::Spacing, "EditHorzSpacing", "horizontal-spacing", "Horizontal Spacing:",
          horizontalText, horizontal}
{}

LineFields::LineFields(PaperForm& form, const SpacingFields& spacing, bool linesOn)
    : CheckVertLines{form,
                     Group::Lines,
                     "CheckVertLines",
                     "vertical-lines",
                     "Vertical Lines",
                     linesOn,
                     {.governs = {"grid.vertical"}}},
      EditHorzWeight{form,
                     Group::Lines,
                     "EditHorzWeight",
                     "line-weight-of-the-horizontal-lines",
                     "Line Weight:",
                     ".5",
                     {.label = "StaticTextVLines",
                      .beside = true,
                      .enabledBy = &CheckVertLines,
                      .meaning = Meaning::Weight,
                      .sets = "horizontal lines",
                      .governs = {"grid.horizontal"},
                      .drawnBy = &CheckHorzLines,
                      .apart = &spacing.EditVertSpacing}},
      CheckHorzLines{form,
                     Group::Lines,
                     "CheckHorzLines",
                     "horizontal-lines",
                     "Horizontal Lines",
                     linesOn,
                     {.governs = {"grid.horizontal"}}},
      EditVertWeight{form,
                     Group::Lines,
                     "EditVertWeight",
                     "line-weight-of-the-vertical-lines",
                     "Line Weight:",
                     ".5",
                     {.label = "StaticTextHLines",
                      .beside = true,
                      .enabledBy = &CheckHorzLines,
                      .meaning = Meaning::Weight,
                      .sets = "vertical lines",
                      .governs = {"grid.vertical"},
                      .drawnBy = &CheckVertLines,
                      .apart = &spacing.EditHorzSpacing}}
{}

Message LineFields::WhyNone() const
{
    return CheckVertLines.Value() || CheckHorzLines.Value()
               ? Message()
               : Message("Vertical Lines and Horizontal Lines are off");
}

CellGrid FitCells(const PageFrame& frame, const TextField& vertSpacing, const TextField& horzSpacing,
                  const Mark& mark)
{
    CellGrid grid;
    grid.vertSpacing = vertSpacing.Used() * frame.unitPixels;
    grid.horzSpacing = horzSpacing.Used() * frame.unitPixels;
    const double usableWidth = frame.UsableWidth() - mark.width;
    const double usableHeight = frame.UsableHeight() - mark.height;
    const std::int64_t columns = WholeCells(usableWidth, grid.horzSpacing);
    const std::int64_t rows = WholeCells(usableHeight, grid.vertSpacing);
    grid.left = frame.leftMargin + CentringShift(usableWidth, columns, grid.horzSpacing, mark.width);
    grid.bottom = frame.bottomMargin + CentringShift(usableHeight, rows, grid.vertSpacing, mark.height);
    grid.columns = static_cast<double>(columns);
    grid.rows = static_cast<double>(rows);
    return grid;
}

CellGrid FitCells(const PageFrame& frame, const SpacingFields& spacing, const LineFields& lines, const Mark& mark)
{
    CellGrid grid = FitCells(frame, spacing.EditVertSpacing, spacing.EditHorzSpacing, mark);
    grid.horzLineWeight = lines.EditHorzWeight.Used();
    grid.vertLineWeight = lines.EditVertWeight.Used();
    grid.drawsHorzLines = lines.CheckHorzLines.Value();
    grid.drawsVertLines = lines.CheckVertLines.Value();
    return grid;
}

void DrawHorizontalLines(const CellGrid& grid, MyPDFGenerator& pdf, Turns& turns)
{
    pdf.SetRole("grid.horizontal");
    pdf.SetLineWidth(grid.horzLineWeight);
    for (double i = 0.0; i <= grid.rows; i += 1.0) {
        pdf.StrokeLine(grid.left, grid.RowY(i), grid.ColumnX(grid.columns), grid.RowY(i));
        turns.RuntimeBackgroundTask();
    }
}

void DrawVerticalLines(const CellGrid& grid, MyPDFGenerator& pdf, Turns& turns)
{
    pdf.SetRole("grid.vertical");
    pdf.SetLineWidth(grid.vertLineWeight);
    for (double i = 0.0; i <= grid.columns; i += 1.0) {
        pdf.StrokeLine(grid.ColumnX(i), grid.bottom, grid.ColumnX(i), grid.RowY(grid.rows));
        turns.RuntimeBackgroundTask();
    }
}

void DrawChosenLines(const CellGrid& grid, MyPDFGenerator& pdf, Turns& turns)
{
    if (grid.drawsHorzLines) {
        DrawHorizontalLines(grid, pdf, turns);
    }
    if (grid.drawsVertLines) {
        DrawVerticalLines(grid, pdf, turns);
    }
}

Message CellWords(const CellGrid& grid, const PageFrame& frame, const Noun& noun)
{
    return Message("%1 of %2", CountWords(grid.columns, grid.rows, noun),
                   SizeWords(grid.horzSpacing, grid.vertSpacing, frame));
}

Message CrossingWords(const CellGrid& grid, const PageFrame& frame, const Noun& noun)
{
    return Message("%1, %2 apart", CountWords(grid.columns + 1.0, grid.rows + 1.0, noun),
                   SizeWords(grid.horzSpacing, grid.vertSpacing, frame));
}

}  // namespace linealis
