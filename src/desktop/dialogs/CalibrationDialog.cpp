#include "desktop/dialogs/CalibrationDialog.h"

#include "check/Calibration.h"
#include "desktop/dialogs/DialogColumn.h"
#include "desktop/system/Text.h"
#include "pipeline/page/PageJob.h"
#include "text/Numbers.h"

#include <QDialogButtonBox>
#include <QLocale>
#include <QPrinterInfo>
#include <algorithm>
#include <cmath>
#include <utility>

namespace linealis::desktop {

namespace {

template <typename Widget>
Widget* Named(Widget* widget, const char* name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QLabel* Words(const QString& text)
{
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

DrawnPage SheetFor(const CalibrationPaper& paper)
{
    Turns turns([] {});
    return DrawPage(CalibrationPage(paper), turns);
}

constexpr double percent = 100.0;

}  // namespace

CalibrationDialog::CalibrationDialog(const QStringList& printers, FolderItem theFactorsFile,
                                     ModalRunner theRunModal, TakeOver theTakeOver, QWidget* parent)
    : QDialog(parent), factorsFile(std::move(theFactorsFile)), runModal(std::move(theRunModal)),
      takeOver(std::move(theTakeOver))
{
    setWindowTitle(Translated("Calibrate a Printer"));
    auto* const layout = MakeDialogColumn(*this);
    layout->addWidget(
        Words(Translated("Print the sheet, measure from 0 to 10 cm across and down, and enter the two "
                         "lengths. The sheet itself is always printed without a correction.")));
    auto* const rows = new QFormLayout;
    layout->addLayout(rows);
    AddPrinterRows(*rows, printers);
    AddLengthRows(*rows);
    said = Named(Words({}), "CalibrationMessage");
    layout->addWidget(said);
    AddButtons(*layout, static_cast<bool>(takeOver));
    across->setFocus();
    ShowStoredFactors();
    if (printers.isEmpty()) {
        said->setText(Translated("No printer is set up on this machine."));
    }
}

void CalibrationDialog::AddPrinterRows(QFormLayout& rows, const QStringList& printers)
{
    printer = Named(new QComboBox, "CalibrationPrinter");
    printer->addItems(printers);
    printer->setEnabled(!printers.isEmpty());
    printer->setCurrentIndex(std::max<int>(0, printer->findText(QPrinterInfo::defaultPrinterName())));
    connect(printer, &QComboBox::currentIndexChanged, this, &CalibrationDialog::ShowStoredFactors);
    rows.addRow(Translated("Printer:"), printer);

    paper = Named(new QComboBox, "CalibrationPaper");
    for (const CalibrationPaper& known : CalibrationPapers()) {
        paper->addItem(Translated(known.title), ToQt(known.name));
    }
    const bool isLetter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    paper->setCurrentIndex(paper->findData(isLetter ? QStringLiteral("letter") : QStringLiteral("a4")));
    rows.addRow(Translated("Paper:"), paper);

    auto* const print = Named(new QPushButton(Translated("Print Sheet...")), "CalibrationPrint");
    print->setAutoDefault(false);
    print->setEnabled(!printers.isEmpty());
    connect(print, &QPushButton::clicked, this, &CalibrationDialog::PrintSheet);
    rows.addRow(QString(), print);
}

void CalibrationDialog::AddLengthRows(QFormLayout& rows)
{
    across = Named(new QLineEdit, "CalibrationAcross");
    down = Named(new QLineEdit, "CalibrationDown");
    rows.addRow(Translated("Length across (mm):"), across);
    rows.addRow(Translated("Length down (mm):"), down);
    factorsShown = Named(Words({}), "CalibrationFactors");
    rows.addRow(Translated("Factors:"), factorsShown);
    for (const QLineEdit* const field : {across, down}) {
        connect(field, &QLineEdit::textChanged, this, &CalibrationDialog::ShowFactors);
    }
}

void CalibrationDialog::AddButtons(QVBoxLayout& layout, bool canTakeOver)
{
    auto* const buttons = new QDialogButtonBox;
    const auto add = [&](const QString& caption, const char* name, QDialogButtonBox::ButtonRole role,
                         bool isEnabled) {
        QPushButton* const button = buttons->addButton(caption, role);
        button->setEnabled(isEnabled);
        button->setAutoDefault(false);
        return Named(button, name);
    };
    const bool hasPrinter = printer->count() > 0;
    QPushButton* const take = add(Translated("Put into X Scale and Y Scale"), "CalibrationTakeOver",
                                  QDialogButtonBox::ActionRole, canTakeOver);
    QPushButton* const reset =
        add(Translated("Reset"), "CalibrationReset", QDialogButtonBox::ActionRole, hasPrinter);
    QPushButton* const save = add(Translated("Save"), "CalibrationSave", QDialogButtonBox::ActionRole, hasPrinter);
    QPushButton* const close = Named(buttons->addButton(QDialogButtonBox::Close), "CalibrationClose");
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(reset, &QPushButton::clicked, this, &CalibrationDialog::Reset);
    connect(save, &QPushButton::clicked, this, &CalibrationDialog::Save);
    connect(take, &QPushButton::clicked, this, [this] {
        if (const auto factors = ReadFactors()) {
            takeOver(factors->x * percent, factors->y * percent);
            said->setText(Translated("Put into X Scale and Y Scale. Do not save these factors for the printer too: "
                                     "both would be applied."));
        }
    });
    layout.addWidget(buttons);
    save->setDefault(true);  // after addWidget: a button becomes the default only once it is in the dialog
}

void CalibrationDialog::ShowStoredFactors()
{
    const PrinterFactors factors = ReadPrinterFactors(factorsFile, Printer());
    const auto measured = [](double factor) {
        constexpr double places = 1000.0;  // three decimals, finer than any ruler
        return ToQt(mystring(std::round(FactorOf(calibrationMillimeters, factor) * places) / places));
    };
    across->setText(measured(factors.x));
    down->setText(measured(factors.y));
    ShowFactors();
}

void CalibrationDialog::ShowFactors()
{
    said->clear();
    const auto shown = [](const QLineEdit& field) {
        const std::string length = field.text().toStdString();
        const bool isPossible = LengthProblem({}, length, calibrationMillimeters).IsEmpty();
        return isPossible ? Message::Number(mystring(FactorOf(calibrationMillimeters, Val(length))))
                          : Message::Verbatim("–");
    };
    factorsShown->setText(ToQt(Message("%1 across, %2 down", shown(*across), shown(*down))));
}

std::optional<PrinterFactors> CalibrationDialog::ReadFactors()
{
    const auto problem = [](const Message& direction, const QLineEdit& field) {
        return ToQt(LengthProblem(direction, field.text().toStdString(), calibrationMillimeters));
    };
    for (const QString& text : {problem(Message("across"), *across), problem(Message("down"), *down)}) {
        if (!text.isEmpty()) {
            said->setText(text);
            return std::nullopt;
        }
    }
    const auto factor = [](const QLineEdit& field) {
        return FactorOf(calibrationMillimeters, Val(field.text().toStdString()));
    };
    return PrinterFactors{factor(*across), factor(*down)};
}

void CalibrationDialog::PrintSheet()
{
    const CalibrationPaper* const chosen = FindCalibrationPaper(paper->currentData().toString().toStdString());
    if (chosen == nullptr) {
        return;
    }
    QPrinter device(QPrinter::HighResolution);
    device.setPrinterName(printer->currentText());
    device.setDocName(Translated("Calibration Sheet"));
    Turns turns([] {});  // printing one sheet is fast, so it needs no Cancel
    said->setText(PrintWithDialog(device, SheetFor(*chosen), turns, {}, this, runModal));
}

void CalibrationDialog::Store(const PrinterFactors& factors)
{
    const std::error_code error = WritePrinterFactors(factorsFile, Printer(), factors);
    said->setText(error ? Translated("Not saved: %1").arg(ToQt(error.message()))
                        : Translated("Saved for %1.").arg(printer->currentText()));
}

void CalibrationDialog::Save()
{
    if (const auto factors = ReadFactors()) {
        Store(*factors);
    }
}

void CalibrationDialog::Reset()
{
    across->setText(QString::number(calibrationMillimeters));
    down->setText(QString::number(calibrationMillimeters));
    Store({});
}

}  // namespace linealis::desktop
