#include "desktop/dialogs/PortalPrint.h"

#include "desktop/system/PortalRequest.h"
#include "desktop/system/Text.h"
#include "pdf/Units.h"

#include <QDBusUnixFileDescriptor>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>

namespace linealis::desktop {

namespace {

QString NotPrinted(const QString& name, const QString& problem)
{
    return problem.isEmpty() ? QString() : Translated("%1 was not printed: %2").arg(name, problem);
}

/// Returns what the portal's dialog proposes.
QVariantMap SettingsFor(const PrintedSheets& sheets)
{
    QVariantMap settings{{QStringLiteral("n-copies"), QString::number(std::max(sheets.copies, 1))},
                         {QStringLiteral("scale"), QStringLiteral("100")}};
    if (sheets.hasBacks) {
        const bool isLandscape = sheets.paper.width() > sheets.paper.height();  // turned over the short edge
        settings.insert(QStringLiteral("duplex"),
                        isLandscape ? QStringLiteral("vertical") : QStringLiteral("horizontal"));
    }
    return settings;
}

/// Returns the paper as the portal describes it: held upright, in millimeters, with an orientation.
QVariantMap PageSetupFor(const QSizeF& paper)
{
    const bool isLandscape = paper.width() > paper.height();
    const QSizeF upright = (isLandscape ? paper.transposed() : paper) * mmPerPoint;
    QVariantMap setup{
        {QStringLiteral("Width"), upright.width()},
        {QStringLiteral("Height"), upright.height()},
        {QStringLiteral("Orientation"), isLandscape ? QStringLiteral("landscape") : QStringLiteral("portrait")}};
    for (const char* const side : {"Top", "Bottom", "Left", "Right"}) {
        setup.insert(QStringLiteral("Margin") + QLatin1String(side), 0.0);
    }
    return setup;
}

/// Writes the sheets into a PDF file. Returns whether it was written.
bool WritePdf(const QString& path, const PrintedSheets& sheets, Turns& turns)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    SetPaper(printer, sheets.paper);
    return PaintOnPrinter(printer, sheets, turns);
}

}  // namespace

QString PrintThroughPortal(const QDBusConnection& bus, const PrintedSheets& sheets, Turns& turns,
                           const QString& name, QWidget* parent, const ModalRunner& runModal)
{
    const QString words = Translated("Choose a printer in the dialog of the desktop.");
    PortalRequest choice(bus, QStringLiteral("PreparePrint"), name,
                         {SettingsFor(sheets), PageSetupFor(sheets.paper)}, {}, words, parent);
    if (runModal(choice) != QDialog::Accepted) {
        return NotPrinted(name, choice.Problem());
    }
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("page.pdf")));
    if (!WritePdf(file.fileName(), sheets, turns) || !file.open(QIODevice::ReadOnly)) {
        return NotPrinted(name, file.errorString());
    }
    const QString token = QStringLiteral("token");
    PortalRequest print(bus, QStringLiteral("Print"), name,
                        {QVariant::fromValue(QDBusUnixFileDescriptor(file.handle()))},
                        {{token, choice.Answer().value(token)}}, Translated("The desktop is printing."), parent);
    if (runModal(print) != QDialog::Accepted) {
        return NotPrinted(name, print.Problem());
    }
    return Translated("Printed through the desktop, %1, 100 %").arg(PaperText(sheets.paper));
}

}  // namespace linealis::desktop
