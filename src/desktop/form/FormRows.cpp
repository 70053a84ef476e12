#include "desktop/form/FormRows.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>

namespace linealis::desktop {

namespace {

constexpr Qt::Alignment captionAlignment = Qt::AlignRight | Qt::AlignVCenter;

QHBoxLayout* BoxOf(std::span<const RowItem> cell)
{
    auto* const box = new QHBoxLayout;
    box->setSpacing(6);
    for (const RowItem& item : cell) {
        box->addWidget(item.widget);
    }
    for (const RowItem& item : cell) {
        if (item.readout != nullptr) {
            box->addWidget(item.readout);
        }
    }
    box->addStretch(1);
    return box;
}

}  // namespace

std::vector<FormRows::Cell> FormRows::CellsOf(const std::vector<RowItem>& items)
{
    std::vector<Cell> cells;
    for (const RowItem& item : items) {
        if (cells.empty() || !item.continuesCell) {
            cells.emplace_back();
        }
        cells.back().push_back(item);
    }
    return cells;
}

/// Whether the cell needs a line of its own: because it is wide, or because it is the title or the popup of a row
/// with more than two cells.
bool FormRows::TakesALine(const Cell& cell, const std::vector<Cell>& row)
{
    const RowItem& first = cell.front();
    const bool hasReadout = FactsOf(first.control->Declared().meaning).quantity != Quantity::None;
    const bool isWide = cell.size() > 2 || (cell.size() == 2 && hasReadout);
    const bool isTitle = IsProse(*first.control) && std::any_of(row.begin(), row.end(), [](const Cell& other) {
                             return !IsProse(*other.front().control);
                         });
    return isWide || (row.size() > 2 && (isTitle || first.control->Kind() == ControlKind::Popup));
}

void FormRows::Add(const std::vector<RowItem>& items)
{
    const std::vector<Cell> cells = CellsOf(items);
    for (std::size_t begin = 0, end = 0; begin < cells.size(); begin = end) {
        const bool isAlone = cellsPerLine < mostCells && TakesALine(cells[begin], cells);
        end = std::min(begin + (isAlone ? 1 : cellsPerLine), cells.size());
        const std::span line = std::span(cells).subspan(begin, end - begin);
        hasTable ? AddLineBelowTable(line) : AddLine(line);
    }
}

void FormRows::AddLine(std::span<const Cell> cells)
{
    const int line = grid.rowCount();
    int place = 0;
    for (const Cell& cell : cells) {
        const RowItem& first = cell.front();
        // A check box contains its caption, so it uses the column of captions too. At the start of a line it does
        // not, so that it lines up with the fields above.
        const bool isCheck = first.control->Kind() == ControlKind::Check;
        const bool fillsCaption = isCheck && place > 0;
        const bool leavesCheckOut =
            textsHaveChecks && !isCheck && &cell == &cells.front() + 1 && IsProse(*cells.front().front().control);
        place += leavesCheckOut ? 2 : 0;
        if (first.caption != nullptr) {
            grid.addWidget(first.caption, line, place, captionAlignment);
        }
        place += fillsCaption ? 0 : 1;
        const int width = fillsCaption ? 2 : 1;
        // The last cell spans all remaining columns, so that it does not widen its own.
        grid.addLayout(BoxOf(cell), line, place, 1, &cell == &cells.back() ? columns - place : width);
        place += width;
    }
}

/// Puts all cells into one box, so that they do not widen the columns of the table.
void FormRows::AddLineBelowTable(std::span<const Cell> cells)
{
    auto* const box = new QHBoxLayout;
    for (const Cell& cell : cells) {
        box->addLayout(BoxOf(cell));
    }
    box->addStretch(1);
    grid.addLayout(box, grid.rowCount(), 1, 1, columns - 1);
}

void FormRows::AddToTable(const std::vector<RowItem>& items, const std::vector<QWidget*>& behind)
{
    hasTable = true;
    const int line = grid.rowCount();
    int place = 0;
    for (const RowItem& item : items) {
        const bool isHeading = place == 0 && item.control->Kind() == ControlKind::Label;
        grid.addWidget(item.widget, line, place++, isHeading ? captionAlignment : Qt::AlignLeft | Qt::AlignVCenter);
    }
    auto* const end = new QHBoxLayout;
    for (QWidget* const widget : behind) {
        end->addWidget(widget);
    }
    end->addStretch(1);
    grid.addLayout(end, line, place, 1, columns - place);
}

}  // namespace linealis::desktop
