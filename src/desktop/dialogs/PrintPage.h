#pragma once

#include "desktop/system/PrinterFactors.h"
#include "pipeline/page/PageJob.h"
#include "platform/FolderItem.h"

#include <QDialog>
#include <QPointF>
#include <QPrinter>
#include <QSizeF>
#include <QString>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::desktop {

/// A page on a side of a sheet. Its content must outlive it.
struct PrintedPage {
    std::string_view content;
    double height = 0.0;   ///< of the page, in points
    QPointF corner;        ///< its upper left corner, in points from the upper left corner of the side
    QRectF clip = {};      ///< what is printed of the side, from the same corner; null: everything
    bool isMarks = false;  ///< only marks for cutting and numbers, whose lines may be out of the printer's reach
};

/// Sheets of one size to print.
struct PrintedSheets {
    PrintedSheets() = default;
    /// One sheet with nothing but the page, which must outlive this object.
    PrintedSheets(const DrawnPage& page);  // NOLINT(google-explicit-constructor): a page is the usual case

    QSizeF paper;  ///< points
    int sides = 1;
    /// Calls `use` for each page on a side, in the order to paint them. Sides count from 0.
    using PageUse = std::function<void(const PrintedPage& page)>;
    std::function<void(int side, const PageUse& use)> forPages;
    bool hasBacks = false;  ///< whether every second side is the back of the one before it
    int copies = 1;         ///< as the dialog proposes it
};

/// Sets the printer to paper of the size, in points, and to its orientation, with coordinates that start at the
/// corner of the sheet and not of the printable area. A printer that does not support the paper gets its default
/// paper.
void SetPaper(QPrinter& printer, const QSizeF& size);

/// Returns the warnings to show before printing: that the paper of the printer differs from that of the page, and
/// that lines extend beyond the printable area. The width of lines does not count, only their center.
std::vector<QString> PrintWarnings(const QPrinter& printer, const PrintedSheets& sheets,
                                   const PrinterFactors& factors = {});

/// Prints the pages from the upper left corner of the sheet, as vector graphics. A point of the page is 1/72 inch
/// on paper, times the factors; the page is not scaled to fit. `factors` apply to portrait paper; on landscape
/// paper, which runs through the printer turned, x and y are swapped. Returns whether the printer accepted the
/// job. What `turns` throws passes through, after the job has been aborted and its output file removed.
bool PaintOnPrinter(QPrinter& printer, const PrintedSheets& sheets, Turns& turns,
                    const PrinterFactors& factors = {});

/// Shows a dialog and waits for the user. Returns how it ended.
using ModalRunner = std::function<int(QDialog& dialog)>;

/// Prints sheets. Lets the user choose the printer in the system's dialog; paper and orientation always come
/// from the sheets. If there are warnings, shows them in one message with Print and Cancel. Uses the factors that
/// `factorsFile` contains for the chosen printer; an empty reference means factors of 1. Returns a message for the
/// status line, or an empty text if the user canceled. Exceptions of `turns` pass through.
QString PrintWithDialog(QPrinter& printer, const PrintedSheets& sheets, Turns& turns, const FolderItem& factorsFile,
                        QWidget* parent, const ModalRunner& runModal);

/// Like the function above, and proposes the default printer, or a PDF file in the documents folder if there is no
/// printer. `name` is used for the print job and the file. In a sandbox, prints through the desktop's portal
/// (PrintThroughPortal).
QString PrintWithDialog(const PrintedSheets& sheets, Turns& turns, const QString& name,
                        const FolderItem& factorsFile, QWidget* parent, const ModalRunner& runModal);

/// Returns the name of a paper of that size, in points, or the size in words if it has none.
QString PaperText(const QSizeF& paper);

/// Returns the message for the status line after printing: the printer, the paper, the number of copies, and the
/// scale.
QString PrintedText(const QPrinter& printer, const PrinterFactors& factors);

}  // namespace linealis::desktop
