#pragma once

#include "pipeline/form/PaperForm.h"
#include "pipeline/page/PaperPage.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace linealis {

// What the grid, dots, crosses and brick papers share: whole cells, centered between the margins, with horizontal
// and vertical lines on their edges.

/// The two spacings, each with its opening text.
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

/// The weights of the lines and their check boxes. A box and the field beside it do not belong together: the box
/// "Vertical Lines" governs the weight of the horizontal lines and the other way round. Existing forms and settings
/// files have it so.
struct LineFields {
    CheckBox CheckVertLines;
    TextField EditHorzWeight;
    CheckBox CheckHorzLines;
    TextField EditVertWeight;

    LineFields(PaperForm& form, const SpacingFields& spacing, bool linesOn);

    /// Why no line is drawn; empty if one is.
    std::string WhyNone() const;
};

/// A grid of whole cells on a page. Lengths in points.
struct CellGrid {
    double left = 0.0;         ///< of the first column, moved in from the margin so that the grid stands centered
    double bottom = 0.0;       ///< of the first row, likewise
    double horzSpacing = 0.0;  ///< between two vertical lines
    double vertSpacing = 0.0;  ///< between two horizontal lines
    double columns = 0.0;      ///< whole, like rows. Below 0: no cells, not even an edge
    double rows = 0.0;
    double horzLineWeight = 0.0;
    double vertLineWeight = 0.0;
    bool drawsHorzLines = true;
    bool drawsVertLines = true;

    double ColumnX(double column) const { return column * horzSpacing + left; }
    double RowY(double row) const { return row * vertSpacing + bottom; }
};

/// A mark that stands on every crossing. Points.
struct Mark {
    double width = 0.0;
    double height = 0.0;
};

/// The grid that fits between the margins. Marks on its crossings stay inside them.
CellGrid FitCells(const PageFrame& frame, const TextField& vertSpacing, const TextField& horzSpacing,
                  const Mark& mark = {});

/// The same, with its lines.
CellGrid FitCells(const PageFrame& frame, const SpacingFields& spacing, const LineFields& lines,
                  const Mark& mark = {});

/// The lines of one direction, in their weight, from the left or the bottom.
void DrawHorizontalLines(const CellGrid& grid, MyPDFGenerator& pdf, Turns& turns);
void DrawVerticalLines(const CellGrid& grid, MyPDFGenerator& pdf, Turns& turns);

/// Both, each only if the user wants it.
void DrawChosenLines(const CellGrid& grid, MyPDFGenerator& pdf, Turns& turns);

/// "37 by 53 cells of 5 mm", where `one` is the word for a cell.
std::string CellWords(const CellGrid& grid, const PageFrame& frame, std::string_view one);
/// "38 by 54 dots, 5 mm apart", where `one` is the word for what stands on a crossing.
std::string CrossingWords(const CellGrid& grid, const PageFrame& frame, std::string_view one);

/// Calls draw(x, y) for every crossing, row by row from the bottom, each from the left.
template <typename DrawMark>
void ForEachCrossing(const CellGrid& grid, Turns& turns, DrawMark draw)
{
    if (grid.columns < 0.0) {
        return;  // there may be more empty rows than anyone can wait for
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
