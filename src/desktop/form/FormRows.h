#pragma once

#include "pipeline/form/Controls.h"

#include <cstddef>
#include <span>
#include <vector>

class QGridLayout;
class QLabel;
class QWidget;

namespace linealis::desktop {

/// A control of a row with its widgets.
struct RowItem {
    const Control* control;
    QWidget* widget;
    QWidget* caption = nullptr;  ///< before the widget; may be null
    QLabel* readout = nullptr;   ///< after the widget; may be null
    bool continuesCell = false;  ///< belongs in the same cell as the control before it
};

/// Lays out the rows of a group in its grid, from top to bottom. Captions go into the even columns, aligned to the
/// right, and their fields into the odd columns. A row of a table has one column for each field, below the heading
/// of the column.
class FormRows {
public:
    /// As many cells as a row of any form has.
    static constexpr std::size_t mostCells = 6;

    /// A row with more than `theCellsPerLine` cells continues on the next line. If `theTextsHaveChecks`, a check
    /// box follows the text of some rows; the other rows with a text leave its place free, so that their fields
    /// line up.
    FormRows(QGridLayout& theGrid, std::size_t theCellsPerLine, bool theTextsHaveChecks)
        : grid(theGrid), cellsPerLine(theCellsPerLine), columns(2 * static_cast<int>(theCellsPerLine + 1)),
          textsHaveChecks(theTextsHaveChecks)
    {}

    /// The width of the grid: the columns of a full line, and of the place that it may leave free. The last cell of
    /// a line spans all that remain, so each unused one would add its spacing to the width of the form.
    int Columns() const { return columns; }

    /// Adds a row that is not part of a table.
    void Add(const std::vector<RowItem>& items);

    /// Adds a row of a table, with the widgets of `behind` at its end.
    void AddToTable(const std::vector<RowItem>& items, const std::vector<QWidget*>& behind);

private:
    /// A field with its caption, and what follows it directly: its unit, or the height after the width of a paper.
    using Cell = std::vector<RowItem>;

    static std::vector<Cell> CellsOf(const std::vector<RowItem>& items);
    static bool TakesALine(const Cell& cell, const std::vector<Cell>& row);
    void AddLine(std::span<const Cell> cells);
    void AddLineBelowTable(std::span<const Cell> cells);

    QGridLayout& grid;
    std::size_t cellsPerLine;
    int columns;
    bool textsHaveChecks;
    bool hasTable = false;
};

}  // namespace linealis::desktop
