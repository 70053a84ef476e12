#pragma once

#include "desktop/dialogs/PrintPage.h"
#include "exchange/PageFormats.h"

#include <QMimeData>
#include <QString>
#include <memory>

namespace linealis::desktop {

/// The user's choices for an export.
struct ExportChoice {
    QString path;                        ///< empty: the user has canceled
    const PageFormat* format = nullptr;  ///< null if the user has canceled
    WriteOptions options;
};

/// Asks for the format, the resolution, and the file. `name` is the proposed file name without an extension. The
/// resulting path has the extension of the format.
ExportChoice AskForExport(const PaperSize& paper, const QString& name, QWidget* parent,
                          const ModalRunner& runModal);

/// Writes the page as chosen. Returns a message for the status line that tells whether it worked. Exceptions of
/// `turns` pass through; an existing file then stays unchanged.
QString ExportPage(const DrawnPage& page, const ExportChoice& choice, Turns& turns);

/// Returns the page in all formats that programs paste, so that other programs can choose the one they handle best.
/// Reduces the resolution to what the paper size allows. Exceptions of `turns` pass through.
std::unique_ptr<QMimeData> PageForClipboard(const DrawnPage& page, const WriteOptions& options, Turns& turns);

}  // namespace linealis::desktop
