#pragma once

#include "kinds/PadOptions.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QSpinBox>
#include <QWidget>
#include <vector>

namespace linealis::desktop {

class LengthBox;

/// What is made of a page.
enum class PadProduct { Pad, Booklet, Poster };

/// The fields of the dialog for pads. Shows only those that belong to what is made; its size does not depend on
/// that.
class PadFields final : public QWidget {
    Q_OBJECT

public:
    /// `front`, `back` and `preset` are lists that are placed among the fields. Lengths are in inches or in
    /// millimeters.
    PadFields(QComboBox& front, QComboBox& back, QComboBox& preset, bool inInches);

    PadProduct Product() const;
    /// Returns what the fields say. Fields that are not shown do not count.
    PadOptions Options() const;

    /// Proposes the number of rows of a table as the number of pages; 0 if the pages are not those of a table any
    /// more.
    void ProposePages(std::size_t rows);

    /// Stores what is chosen for the next dialog.
    void Keep() const;

signals:
    void Changed();

private:
    /// Which products a field belongs to.
    enum Shown { always, unlessPoster, onlyPad, onlyBooklet, onlyPoster };

    struct Row {
        QWidget* caption;  ///< null: the field has its own
        QWidget* field;
        Shown shown;
    };

    void AddRow(const QString& caption, QWidget* field, const char* name, Shown shown);
    void AddRow(QWidget* caption, QWidget* field, Shown shown);
    void AddPageRows(QComboBox& front);
    void AddOtherRows(QComboBox& back, QComboBox& preset);
    void FillLists();
    /// Makes room for the fields of every product.
    void ReserveRoom();
    void ShowRows();
    void Restore();

    QGridLayout* grid = new QGridLayout(this);
    std::vector<Row> rows;
    QComboBox* product = new QComboBox;
    QSpinBox* pages = new QSpinBox;
    QComboBox* up = new QComboBox;
    QCheckBox* numbers = new QCheckBox;
    QCheckBox* dates = new QCheckBox;
    QDateEdit* firstDate = new QDateEdit;
    LengthBox* creep;
    QComboBox* paper = new QComboBox;
    LengthBox* overlap;
    QSpinBox* copies = new QSpinBox;
    int pagesOfForm = 0;  ///< the pages before a table was chosen; 0: none is
};

}  // namespace linealis::desktop
