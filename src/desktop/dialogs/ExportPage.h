#pragma once

#include "desktop/dialogs/PrintPage.h"
#include "exchange/PageFormats.h"

#include <QMimeData>
#include <QString>
#include <memory>

namespace linealis::desktop {

/// What an export is to be.
struct ExportChoice {
    QString path;                        ///< empty: the user has canceled
    const PageFormat* format = nullptr;  ///< whose ending the path has
    WriteOptions options;
};

/// Asks for the format, the resolution and the file. `name` is proposed, without an ending.
ExportChoice AskForExport(const PaperSize& paper, const QString& name, QWidget* parent,
                          const ModalRunner& runModal);

/// Writes the page as the choice says. Returns what to say in a status line. What `turns` throws passes through,
/// and the file is as it was.
QString ExportPage(const DrawnPage& page, const ExportChoice& choice, Turns& turns);

/// The page in all formats, for other programs, which take what they know best. What `turns` throws passes through.
std::unique_ptr<QMimeData> PageForClipboard(const DrawnPage& page, const WriteOptions& options, Turns& turns);

}  // namespace linealis::desktop
