#pragma once

#include "pipeline/form/Controls.h"

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QWidget;

namespace linealis::desktop {

/// Puts the controls of one row of a form into a line of its group's grid, from the left. Captions and fields stand
/// in columns of their own; a field of a table stands under its heading.
class FormRow {
public:
    /// More columns than any row has.
    static constexpr int columns = 20;

    /// Begins a new line of the grid.
    explicit FormRow(QGridLayout& theGrid);

    /// Where a control stands in its row.
    enum class Place { first, between, last, only };

    /// Puts the next control, with its caption, if it has one before it.
    void Add(const Control& control, QWidget* widget, QLabel* caption, Place where);

    /// Puts a widget into the room that is left at the end of the row, however narrow that is.
    void AddAtEnd(QWidget* widget);

private:
    void AddRowHeading(QWidget* widget);
    void AddToTable(QWidget* widget);
    void AddCell(const Control& control, QWidget* widget, QLabel* caption, bool isLast);

    QGridLayout& grid;
    int line;
    int place = 0;
    QHBoxLayout* cell = nullptr;  ///< of the control before
    bool cellEndsRow = false;     ///< it takes all the room that is left
};

}  // namespace linealis::desktop
