#pragma once

#include "pipeline/form/Controls.h"

#include <cstddef>
#include <span>
#include <vector>

class QGridLayout;
class QLabel;
class QWidget;

namespace linealis::desktop {

/// A control of a row on the screen.
struct RowItem {
    const Control* control;
    QWidget* widget;
    QLabel* caption = nullptr;  ///< before the widget; null if it has none
    QLabel* readout = nullptr;  ///< behind the widget; null if it has none
};

/// Lays out the rows of a group in its grid, from the top. Captions stand in the even columns, aligned to the
/// right, and their fields in the odd ones. A row of a table has one column for each field, under the heading of
/// the column.
class FormRows {
public:
    /// More columns than any row has.
    static constexpr int columns = 20;

    /// A row with more than `theCellsPerLine` fields continues on the next line.
    FormRows(QGridLayout& theGrid, std::size_t theCellsPerLine) : grid(theGrid), cellsPerLine(theCellsPerLine) {}

    void Add(const std::vector<RowItem>& items);

    /// Adds a row of a table. `readout` stands at its end; null if there is none.
    void AddToTable(const std::vector<RowItem>& items, QLabel* readout);

private:
    /// A field with its caption, and what stands directly behind it: a unit, the height of a paper.
    using Cell = std::vector<RowItem>;

    static std::vector<Cell> CellsOf(const std::vector<RowItem>& items);
    static bool TakesALine(const Cell& cell, const std::vector<Cell>& row);
    void AddLine(std::span<const Cell> cells);
    void AddLineBelowTable(std::span<const Cell> cells);

    QGridLayout& grid;
    std::size_t cellsPerLine;
    bool hasTable = false;
};

}  // namespace linealis::desktop
