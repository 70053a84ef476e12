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

/// Asks of the printer the page's paper and orientation, and the whole of the sheet from its corner. A printer that
/// does not have the paper is left with its usual one.
void SetPaper(QPrinter& printer, const PageFrame& frame);

/// What is to be said before the page is printed, a sentence each: that the printer's paper is another one than the
/// page's, and that lines of the page lie where the printer cannot print. A line counts by its middle.
std::vector<QString> PrintWarnings(const QPrinter& printer, const DrawnPage& page,
                                   const PrinterFactors& factors = {});

/// Paints the page on the printer's whole sheet from its upper left corner, as lines, not as a picture. A point of
/// the page is 1/72 inch of paper, times the factors; nothing is fitted. `factors` are those of portrait paper, so
/// on landscape paper, which runs through the printer turned, x and y change places. Returns whether the printer
/// took it. What `turns` throws passes through, and nothing is printed, nor is there a file of what was.
bool PaintOnPrinter(QPrinter& printer, const DrawnPage& page, Turns& turns, const PrinterFactors& factors = {});

/// Shows a dialog and waits for the user. Returns how it ended.
using ModalRunner = std::function<int(QDialog& dialog)>;

/// Lets the user choose the printer in the print dialog (paper and orientation are the page's all the same), tells
/// the warnings, if there are any, in one message with Print and Cancel, and prints with the chosen printer's
/// factors of the file. An empty file means factors of 1. Returns what to say in a status line; empty if the user
/// canceled. What `turns` throws passes through.
QString PrintWithDialog(QPrinter& printer, const DrawnPage& page, Turns& turns, const FolderItem& factorsFile,
                        QWidget* parent, const ModalRunner& runModal);

/// The same on the system's standard printer, or without any printer into a PDF file. `name` is the page's, for the
/// job and the file.
QString PrintWithDialog(const DrawnPage& page, Turns& turns, const QString& name, const FolderItem& factorsFile,
                        QWidget* parent, const ModalRunner& runModal);

/// What to say in a status line of a page that is printed: where, on what, how often and how large.
QString PrintedText(const QPrinter& printer, const PrinterFactors& factors);

}  // namespace linealis::desktop
