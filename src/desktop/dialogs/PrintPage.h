#pragma once

#include "desktop/system/PrinterFactors.h"
#include "pipeline/page/PageJob.h"
#include "platform/FolderItem.h"

#include <QDialog>
#include <QPrinter>
#include <QString>
#include <functional>
#include <string>
#include <vector>

namespace linealis::desktop {

/// Sets the printer to the paper and orientation of the page, with coordinates that start at the corner of the
/// sheet and not of the printable area. A printer that does not support the paper gets its default paper.
void SetPaper(QPrinter& printer, const PageFrame& frame);

/// Returns the warnings to show before printing: that the paper of the printer differs from that of the page, and
/// that lines extend beyond the printable area. The width of lines does not count, only their center.
std::vector<QString> PrintWarnings(const QPrinter& printer, const DrawnPage& page,
                                   const PrinterFactors& factors = {});

/// Prints the page from the upper left corner of the sheet, as vector graphics. A point of the page is 1/72 inch
/// on paper, times the factors; the page is not scaled to fit. `factors` apply to portrait paper; on landscape
/// paper, which runs through the printer turned, x and y are swapped. Returns whether the printer accepted the
/// job. What `turns` throws passes through, after the job has been aborted and its output file removed.
bool PaintOnPrinter(QPrinter& printer, const DrawnPage& page, Turns& turns, const PrinterFactors& factors = {});

/// Shows a dialog and waits for the user. Returns how it ended.
using ModalRunner = std::function<int(QDialog& dialog)>;

/// Prints the page. Lets the user choose the printer in the system's dialog; paper and orientation always come
/// from the page. If there are warnings, shows them in one message with Print and Cancel. Uses the factors that
/// `factorsFile` contains for the chosen printer; an empty reference means factors of 1. Returns a message for the
/// status line, or an empty text if the user canceled. Exceptions of `turns` pass through.
QString PrintWithDialog(QPrinter& printer, const DrawnPage& page, Turns& turns, const FolderItem& factorsFile,
                        QWidget* parent, const ModalRunner& runModal);

/// Like the function above, and proposes the default printer, or a PDF file in the documents folder if there is no
/// printer. `name` is used for the print job and the file.
QString PrintWithDialog(const DrawnPage& page, Turns& turns, const QString& name, const FolderItem& factorsFile,
                        QWidget* parent, const ModalRunner& runModal);

/// Returns the message for the status line after printing: the printer, the paper, the number of copies, and the
/// scale.
QString PrintedText(const QPrinter& printer, const PrinterFactors& factors);

}  // namespace linealis::desktop
