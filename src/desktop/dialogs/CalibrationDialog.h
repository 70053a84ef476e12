#pragma once

#include "desktop/dialogs/PrintPage.h"
#include "desktop/system/PrinterFactors.h"
#include "platform/FolderItem.h"

#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>
#include <QVBoxLayout>
#include <functional>
#include <optional>

namespace linealis::desktop {

/// Calibrates a printer: prints the calibration sheet, lets the user enter the two lengths measured on it, and
/// stores the resulting factors for that printer.
class CalibrationDialog final : public QDialog {
    Q_OBJECT

public:
    /// Puts the factors, in percent, into the fields X Scale and Y Scale of a form.
    using TakeOver = std::function<void(double xPercent, double yPercent)>;

    /// `printers` may be empty; then nothing can be printed or stored. `theTakeOver` may be empty if there is no
    /// form to put the factors into.
    CalibrationDialog(const QStringList& printers, FolderItem theFactorsFile, ModalRunner theRunModal,
                      TakeOver theTakeOver, QWidget* parent);

private:
    void AddPrinterRows(QFormLayout& rows, const QStringList& printers);
    void AddLengthRows(QFormLayout& rows);
    void AddButtons(QVBoxLayout& layout, bool canTakeOver);
    void ShowStoredFactors();
    void PrintSheet();
    void Save();
    void Reset();

    /// Returns the factors from the two fields. If a length is not acceptable, shows the reason and returns
    /// nothing.
    std::optional<PrinterFactors> ReadFactors();
    std::string Printer() const { return printer->currentText().toStdString(); }
    /// Stores the factors of the chosen printer and shows whether that worked. Factors of 1 are removed.
    void Store(const PrinterFactors& factors);
    /// Shows the factors that follow from the two fields, or a dash for a length that is not acceptable.
    void ShowFactors();

    FolderItem factorsFile;
    ModalRunner runModal;
    TakeOver takeOver;
    QComboBox* printer = nullptr;
    QComboBox* paper = nullptr;
    QLineEdit* across = nullptr;
    QLineEdit* down = nullptr;
    QLabel* factorsShown = nullptr;
    QLabel* said = nullptr;
};

}  // namespace linealis::desktop
