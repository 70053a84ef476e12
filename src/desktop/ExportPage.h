#pragma once

#include "desktop/PrintPage.h"
#include "exchange/PngPage.h"

#include <QMimeData>
#include <QString>
#include <memory>
#include <string>

namespace linealis::desktop {

/// What an export is to be.
struct ExportChoice {
    QString path;    ///< ends in .svg or .png; empty: the user has cancelled
    PngOptions png;  ///< also of an SVG file: the text that it carries
};

/// Asks for the format, the resolution and the file. `name` is proposed, without an ending.
ExportChoice AskForExport(const PaperSize& paper, const QString& name, QWidget* parent,
                          const ModalRunner& runModal);

/// Writes the page as the choice says. Returns what to say in a status line. What `turns` throws passes through,
/// and the file is as it was.
QString ExportPage(const DrawnPage& page, const ExportChoice& choice, Turns& turns);

/// The page for other programs, which take what they know best: PDF, SVG, PNG, or a picture. `pdf` are the bytes of
/// its file. What `turns` throws passes through.
std::unique_ptr<QMimeData> PageForClipboard(const DrawnPage& page, const std::string& pdf,
                                            const std::string& carried, Turns& turns);

}  // namespace linealis::desktop
