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

/// The dialog in which the user measures a printer: prints the calibration sheet, takes the two lengths that are
/// read off it, and keeps the factors that follow from them for that printer.
class CalibrationDialog final : public QDialog {
    Q_OBJECT

public:
    /// Puts the factors, in percent, into the fields X Scale and Y Scale of a form.
    using TakeOver = std::function<void(double xPercent, double yPercent)>;

    /// `printers` may be empty, and so may `takeOver`: then there is no form to put the factors into.
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

    /// What follows from the two fields; nothing, and the reason shown, if one cannot be taken.
    std::optional<PrinterFactors> ReadFactors();
    std::string Printer() const { return printer->currentText().toStdString(); }
    void Store(const PrinterFactors& factors);
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
