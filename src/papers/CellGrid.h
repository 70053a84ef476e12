#pragma once

#include "pipeline/form/PaperForm.h"
#include "pipeline/page/PageWords.h"
#include "pipeline/page/PaperPage.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace linealis {

// The common parts of grid, dots, cross, and brick paper: whole cells, centered between the margins, with
// horizontal and vertical lines along their edges.

/// The two spacing fields. The constructor takes their opening texts.
struct SpacingFields {
    TextField EditVertSpacing;
    TextField EditHorzSpacing;

    SpacingFields(PaperForm& form, std::string_view vertical, std::string_view horizontal);

    static constexpr Traits vertical{.label = "StaticText1",
                                     .meaning = Meaning::Spacing,
                                     .unitRule = UnitRule::Length,
                                     .direction = Direction::Vertical,
                                     .governs = {"grid.horizontal", "dot", "cross"}};
    static constexpr Traits horizontal{.label = "StaticText24",
                                       .meaning = Meaning::Spacing,
                                       .unitRule = UnitRule::Length,
                                       .direction = Direction::Horizontal,
                                       .governs = {"grid.vertical", "joint", "dot", "cross"}};
};

/// The weights of the lines and their check boxes. Each box stands beside the weight of the other lines: the box
/// "Vertical Lines" enables the weight of the horizontal lines and vice versa. Existing forms and settings files
/// depend on it.
struct LineFields {
    CheckBox CheckVertLines;
    TextField EditHorzWeight;
    CheckBox CheckHorzLines;
    TextField EditVertWeight;

    LineFields(PaperForm& form, const SpacingFields& spacing, bool linesOn);

    /// Returns why no line is drawn, for the user; empty if any is.
    Message WhyNone() const;
};

/// A grid of whole cells on a page. Lengths are in points.
struct CellGrid {
    double left = 0.0;         ///< the left edge of the grid, moved in from the margin to center the grid
    double bottom = 0.0;       ///< the bottom edge of the grid, likewise
    double horzSpacing = 0.0;  ///< the distance between two vertical lines
    double vertSpacing = 0.0;  ///< the distance between two horizontal lines
    double columns = 0.0;      ///< whole, like rows; below 0: no cells and no edges
    double rows = 0.0;
    double horzLineWeight = 0.0;
    double vertLineWeight = 0.0;
    bool drawsHorzLines = true;
    bool drawsVertLines = true;

    /// Returns the position of the left edge of a column, or the bottom edge of a row, on the page.
    double ColumnX(double column) const { return column * horzSpacing + left; }
    double RowY(double row) const { return row * vertSpacing + bottom; }
};

/// The size of a mark that is drawn at every crossing, in points.
struct Mark {
    double width = 0.0;
    double height = 0.0;
};

/// Returns the largest grid that fits between the margins, without line weights. Leaves room for marks at its
/// crossings. A spacing of 0 has no cells.
CellGrid FitCells(const PageFrame& frame, const TextField& vertSpacing, const TextField& horzSpacing,
                  const Mark& mark = {});

/// Like the function above, with the lines that the fields describe.
CellGrid FitCells(const PageFrame& frame, const SpacingFields& spacing, const LineFields& lines,
                  const Mark& mark = {});

/// Draws the lines of one direction with their weight, starting at the bottom or at the left.
void DrawHorizontalLines(const CellGrid& grid, MyPDFGenerator& pdf, Turns& turns);
void DrawVerticalLines(const CellGrid& grid, MyPDFGenerator& pdf, Turns& turns);

/// Draws the lines of both directions, each only if its check box is on.
void DrawChosenLines(const CellGrid& grid, MyPDFGenerator& pdf, Turns& turns);

/// Returns "37 by 53 cells of 5 mm". `one` is the word for a cell.
Message CellWords(const CellGrid& grid, const PageFrame& frame, const Noun& noun);
/// Returns "38 by 54 dots, 5 mm apart". `one` is the word for what is at a crossing.
Message CrossingWords(const CellGrid& grid, const PageFrame& frame, const Noun& noun);

/// Calls draw(x, y) with the position of every crossing, row by row from the bottom, and from left to right within
/// each row.
template <typename DrawMark>
void ForEachCrossing(const CellGrid& grid, Turns& turns, DrawMark draw)
{
    if (grid.columns < 0.0) {
        return;  // there is nothing to draw, but there may be a huge number of empty rows
    }
    for (double j = 0.0; j <= grid.rows; j += 1.0) {
        for (double i = 0.0; i <= grid.columns; i += 1.0) {
            draw(grid.ColumnX(i), grid.RowY(j));
            turns.RuntimeBackgroundTask();
        }
        turns.RuntimeBackgroundTask();
    }
}

}  // namespace linealis
