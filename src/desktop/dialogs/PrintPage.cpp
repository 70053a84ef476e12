#include "desktop/dialogs/PrintPage.h"

#include "desktop/dialogs/PortalPrint.h"
#include "desktop/page/PagePainter.h"
#include "desktop/system/FileDialogs.h"
#include "desktop/system/PortalRequest.h"
#include "desktop/system/Text.h"
#include "pdf/PageContent.h"
#include "pdf/Units.h"

#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinterInfo>
#include <QPushButton>
#include <QScopeGuard>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace linealis::desktop {

namespace {

/// Two paper sizes count as the same if no side differs by more than this, about 1 mm. QPageSize::FuzzyMatch
/// allows the same. Sizes in whole points differ this much from the standard sizes.
constexpr double sameSidePoints = 3.0;

/// Lines that extend beyond the printable area by less than this, 0.01 mm, cause no warning.
constexpr double unseenPoints = 0.01 / mmPerPoint;

/// Returns the factors for paper in that orientation. Landscape paper runs through the printer turned, so its
/// factors are swapped.
PrinterFactors Turned(const PrinterFactors& factors, QPageLayout::Orientation orientation)
{
    return orientation == QPageLayout::Landscape ? PrinterFactors{factors.y, factors.x} : factors;
}

Message InMm(double points)
{
    return Message::Number(QString::number(points * mmPerPoint, 'f', 1).toStdString());
}

QString SizeText(const QSizeF& points)
{
    return ToQt(Message("%1 × %2 mm", InMm(points.width()), InMm(points.height())));
}

/// Counts the lines of a page that extend beyond the printable area, and measures how far.
class Overreach final : public PageSink {
public:
    /// `theRoom` is the printable area, in points from the upper left corner of the sheet, with y pointing down.
    Overreach(const QRectF& theRoom, const PrintedPage& thePage, const PrinterFactors& theFactors)
        : room(theRoom), page(thePage), factors(theFactors)
    {}

    bool Scale(double sx, double sy) override
    {
        scaleX = sx;
        scaleY = sy;
        return true;
    }
    bool Stroke(PagePath path, const PagePen& /*pen*/) override
    {
        constexpr double far = std::numeric_limits<double>::max();
        QPointF least(far, far), most(-far, -far);
        double beyond = 0.0;
        for (const PathSegment& segment : path) {
            const QPointF place = page.corner + QPointF(segment.to.x * scaleX, page.height - segment.to.y * scaleY);
            least = {std::min(least.x(), place.x()), std::min(least.y(), place.y())};
            most = {std::max(most.x(), place.x()), std::max(most.y(), place.y())};
            beyond = std::max(beyond, Beyond(place));
        }
        if (IsCutAway(least, most)) {
            return true;
        }
        lines += beyond > unseenPoints ? 1 : 0;
        furthest = std::max(furthest, beyond);
        return true;
    }
    bool Fill(PagePath /*path*/, const PageColor& /*color*/) override { return true; }
    bool FillAndStroke(PagePath path, const PageColor& /*color*/, const PagePen& pen) override
    {
        return Stroke(path, pen);
    }
    bool Text(const PageText& /*text*/) override { return true; }

    int lines = 0;
    double furthest = 0.0;  ///< points

private:
    /// Whether what reaches from one place to the other is not printed at all.
    bool IsCutAway(const QPointF& least, const QPointF& most) const
    {
        const QRectF& clip = page.clip;
        return !clip.isNull() && (most.x() < clip.left() || least.x() > clip.right() || most.y() < clip.top() ||
                                  least.y() > clip.bottom());
    }

    /// Returns how far what is printed at the place, in points on the side, is outside the printable area; 0 if it
    /// is inside.
    double Beyond(QPointF place) const
    {
        if (const QRectF& clip = page.clip; !clip.isNull()) {
            place = {std::clamp(place.x(), clip.left(), clip.right()),
                     std::clamp(place.y(), clip.top(), clip.bottom())};
        }
        const double x = place.x() * factors.x, y = place.y() * factors.y;
        return std::max({room.left() - x, x - room.right(), room.top() - y, y - room.bottom(), 0.0});
    }

    QRectF room;
    const PrintedPage& page;
    PrinterFactors factors;
    double scaleX = 1.0;
    double scaleY = 1.0;
};

bool IsSame(const QSizeF& a, const QSizeF& b)
{
    return std::abs(a.width() - b.width()) <= sameSidePoints && std::abs(a.height() - b.height()) <= sameSidePoints;
}

/// Returns the printer's paper for an upright size in points. A file gets the exact size. A device gets a paper of
/// that size that it knows, else a custom size if it supports that, else its default paper.
QPageSize PaperFor(const QPrinter& printer, const QSizeF& upright)
{
    const QPageSize exact(upright, QPageSize::Point, {}, QPageSize::ExactMatch);
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        return exact;
    }
    const QPrinterInfo device(printer);
    for (const QPageSize& known : device.supportedPageSizes()) {
        if (IsSame(known.size(QPageSize::Point), upright)) {
            return known;
        }
    }
    return device.supportsCustomPageSizes() || device.isNull() ? exact : device.defaultPageSize();
}

/// Returns the printable area, in points from the upper left corner of the sheet. For landscape paper, Qt still
/// reports the margins of upright paper, and the driver may turn the page either way, so the larger margin is used
/// on both opposite sides.
QRectF RoomOf(QPageLayout layout)
{
    layout.setUnits(QPageLayout::Point);
    const QMarginsF upright = layout.minimumMargins();
    QMarginsF margins = upright;
    if (layout.orientation() == QPageLayout::Landscape) {
        const double ends = std::max(upright.top(), upright.bottom());
        const double sides = std::max(upright.left(), upright.right());
        margins = {ends, sides, ends, sides};
    }
    return QRectF(QPointF(), layout.fullRect().size()).marginsRemoved(margins);
}

/// Makes CUPS print without scaling the page to fit, whatever the default of the queue is. Qt passes such options
/// on under a property key that its public headers do not name. A print engine without CUPS ignores it.
void ForbidFitting(const QPrinter& printer)
{
    constexpr auto cupsOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);
    QPrintEngine* const engine = printer.printEngine();
    const QStringList options = engine->property(cupsOptions).toStringList();
    engine->setProperty(cupsOptions,
                        options + QStringList{QStringLiteral("print-scaling"), QStringLiteral("none")});
}

/// Shows the warnings. Returns whether the user wants to print anyway.
bool IsWanted(const std::vector<QString>& warnings, QWidget* parent, const ModalRunner& runModal)
{
    QStringList texts;
    std::copy(warnings.begin(), warnings.end(), std::back_inserter(texts));
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Linealis"), texts.join(QStringLiteral("\n\n")),
                    QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    const QPushButton* const print = box.addButton(Translated("Print"), QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(QMessageBox::Cancel));
    runModal(box);
    return box.clickedButton() == print;
}

/// Returns the name of the printer, or of the output file if there is one.
QString NameOf(const QPrinter& printer)
{
    return printer.outputFileName().isEmpty() ? printer.printerName() : printer.outputFileName();
}

QString PaperName(const QPageSize& paper)
{
    return paper.id() == QPageSize::Custom ? SizeText(paper.size(QPageSize::Point)) : paper.name();
}

/// Paints a side. The coordinates of the painter are points from its upper left corner.
void PaintSide(QPainter& painter, const PrintedSheets& sheets, int side, Turns& turns)
{
    sheets.forPages(side, [&](const PrintedPage& page) {
        turns.Restart();
        painter.save();
        const auto restored = qScopeGuard([&painter] { painter.restore(); });
        if (!page.clip.isNull()) {
            painter.setClipRect(page.clip);
        }
        painter.translate(page.corner);
        PagePainter sink(painter, page.height, PagePainter::ThinLines::AsTheyAre);
        ReadPage(page.content, sink, &turns);
    });
}

}  // namespace

QString PaperText(const QSizeF& paper)
{
    const bool isLandscape = paper.width() > paper.height();
    return PaperName(QPageSize(isLandscape ? paper.transposed() : paper, QPageSize::Point));
}

PrintedSheets::PrintedSheets(const DrawnPage& page)
    : paper(static_cast<double>(page.frame.paperWidth), static_cast<double>(page.frame.paperHeight)),
      forPages([&page, height = paper.height()](int /*side*/, const PageUse& use) {
          use({page.content, height, {}});
      })
{}

void SetPaper(QPrinter& printer, const QSizeF& size)
{
    const bool isLandscape = size.width() > size.height();
    printer.setFullPage(true);
    printer.setPageSize(PaperFor(printer, isLandscape ? size.transposed() : size));
    printer.setPageOrientation(isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

std::vector<QString> PrintWarnings(const QPrinter& printer, const PrintedSheets& sheets,
                                   const PrinterFactors& factors)
{
    std::vector<QString> warnings;
    const QPageLayout layout = printer.pageLayout();
    const QSizeF sheet = layout.fullRect(QPageLayout::Point).size();
    if (!IsSame(sheet, sheets.paper)) {
        warnings.push_back(Translated("The printer's paper is %1, the page's %2. The page is printed at 100 % from "
                                      "the upper left corner.")
                               .arg(SizeText(sheet), SizeText(sheets.paper)));
    }
    const PrinterFactors turned = Turned(factors, layout.orientation());
    int count = 0;
    double furthest = 0.0;
    const int differentSides = sheets.hasBacks ? 2 : 1;
    for (int side = 0; side < differentSides; ++side) {
        sheets.forPages(side, [&](const PrintedPage& page) {
            if (page.isMarks) {
                return;
            }
            Overreach reach(RoomOf(layout), page, turned);
            ReadPage(page.content, reach);
            count += reach.lines;
            furthest = std::max(furthest, reach.furthest);
        });
    }
    if (count > 0) {
        warnings.push_back(ToQt(Message(Plural("%1 line extends beyond the printable area, by up to %2 mm.",
                                               "%1 lines extend beyond the printable area, by up to %2 mm."),
                                        count, count, InMm(furthest))));
    }
    return warnings;
}

bool PaintOnPrinter(QPrinter& printer, const PrintedSheets& sheets, Turns& turns, const PrinterFactors& factors)
{
    printer.setFullPage(true);
    ForbidFitting(printer);
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    const PrinterFactors turned = Turned(factors, printer.pageLayout().orientation());
    painter.scale(printer.logicalDpiX() / pointsPerInch * turned.x,
                  printer.logicalDpiY() / pointsPerInch * turned.y);
    try {
        for (int side = 0; side < sheets.sides; ++side) {
            if (side > 0 && !printer.newPage()) {
                return false;
            }
            PaintSide(painter, sheets, side, turns);
        }
    } catch (...) {
        // Remove what was printed into a file so far, but never a pipe or a device.
        printer.abort();
        painter.end();
        if (QFileInfo(printer.outputFileName()).isFile()) {
            QFile::remove(printer.outputFileName());
        }
        throw;
    }
    return painter.end() && printer.printerState() != QPrinter::Error;
}

QString PrintedText(const QPrinter& printer, const PrinterFactors& factors)
{
    QStringList parts = {
        Translated("Printed on %1, %2").arg(NameOf(printer), PaperName(printer.pageLayout().pageSize()))};
    if (printer.copyCount() > 1 && printer.outputFileName().isEmpty()) {  // a file contains the page only once
        parts << Translated("%1 copies").arg(printer.copyCount());
    }
    parts << Translated("100 %");
    if (factors != PrinterFactors{}) {
        const auto number = [](double factor) { return Message::Number(QString::number(factor).toStdString()); };
        parts << ToQt(Message("corrected by %1 across and %2 down", number(factors.x), number(factors.y)));
    }
    return parts.join(QStringLiteral(", "));
}

QString PrintWithDialog(QPrinter& printer, const PrintedSheets& sheets, Turns& turns, const FolderItem& factorsFile,
                        QWidget* parent, const ModalRunner& runModal)
{
    SetPaper(printer, sheets.paper);
    if (sheets.copies > 1) {
        printer.setCopyCount(sheets.copies);
    }
    if (sheets.hasBacks) {
        printer.setDuplex(QPrinter::DuplexAuto);
    }
    QPrintDialog dialog(&printer, parent);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile);
    if (runModal(dialog) != QDialog::Accepted) {
        return {};
    }
    SetPaper(printer,
             sheets.paper);  // again, because the dialog has reset the paper to the chosen printer's default
    const PrinterFactors factors = ReadPrinterFactors(factorsFile, printer.printerName().toStdString());
    const std::vector<QString> warnings = PrintWarnings(printer, sheets, factors);
    if (!warnings.empty() && !IsWanted(warnings, parent, runModal)) {
        return {};
    }
    return PaintOnPrinter(printer, sheets, turns, factors)
               ? PrintedText(printer, factors)
               : Translated("%1 could not be printed on").arg(NameOf(printer));
}

QString PrintWithDialog(const PrintedSheets& sheets, Turns& turns, const QString& name,
                        const FolderItem& factorsFile, QWidget* parent, const ModalRunner& runModal)
{
    if (MustPrintThroughPortal()) {
        return PrintThroughPortal(QDBusConnection::sessionBus(), sheets, turns, name, parent, runModal);
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(name);
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        printer.setOutputFileName(QStringLiteral("%1/%2.pdf").arg(DocumentsFolder(), name));
    }
    return PrintWithDialog(printer, sheets, turns, factorsFile, parent, runModal);
}

}  // namespace linealis::desktop
