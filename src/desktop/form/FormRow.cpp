#include "desktop/form/FormRow.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

namespace linealis::desktop {

namespace {

/// A field that goes into the cell of the one before it: a unit behind a number, the height behind "by".
bool ContinuesCell(const Control& control)
{
    const Traits& traits = control.Declared();
    return traits.beside && !traits.captionAbove &&
           (control.Kind() == ControlKind::Label || control.Caption().empty());
}

}  // namespace

FormRow::FormRow(QGridLayout& theGrid) : grid(theGrid), line(theGrid.rowCount()) {}

void FormRow::Add(const Control& control, QWidget* widget, QLabel* caption, Place where)
{
    if (cell != nullptr && ContinuesCell(control)) {
        cell->insertWidget(cell->count() - 1, widget);
    } else if (control.Kind() == ControlKind::Label && where == Place::first) {
        AddRowHeading(widget);
    } else if (control.Declared().captionAbove) {
        AddToTable(widget);
    } else {
        AddCell(control, widget, caption, where == Place::last || where == Place::only);
    }
}

void FormRow::AddRowHeading(QWidget* widget)
{
    grid.addWidget(widget, line, place++, Qt::AlignRight | Qt::AlignVCenter);
}

void FormRow::AddToTable(QWidget* widget)
{
    grid.addWidget(widget, line, place++, Qt::AlignLeft | Qt::AlignVCenter);
}

void FormRow::AddCell(const Control& control, QWidget* widget, QLabel* caption, bool isLast)
{
    // A check box has its caption in itself and takes both columns.
    const bool fillsCaption = control.Kind() == ControlKind::Check || control.Kind() == ControlKind::Label;
    if (caption != nullptr) {
        grid.addWidget(caption, line, place, Qt::AlignRight | Qt::AlignVCenter);
    }
    place += fillsCaption ? 0 : 1;
    cell = new QHBoxLayout;
    cell->setSpacing(6);
    cell->addWidget(widget);
    cell->addStretch(1);
    const int width = fillsCaption ? 2 : 1;
    // The last of a row takes what room it needs, so that it widens no column.
    grid.addLayout(cell, line, place, 1, isLast ? columns - place : width);
    place += width;
    cellEndsRow = isLast;
}

void FormRow::AddAtEnd(QWidget* widget)
{
    widget->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    if (cellEndsRow) {
        delete cell->takeAt(cell->count() - 1);  // the widget takes the place of the empty room
        cell->addWidget(widget, 1);
    } else {
        grid.addWidget(widget, line, place, 1, columns - place);
    }
}

}  // namespace linealis::desktop
