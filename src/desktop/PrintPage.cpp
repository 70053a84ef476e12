#include "desktop/PrintPage.h"

#include "desktop/PagePainter.h"
#include "pdf/PageContent.h"
#include "pdf/Units.h"

#include <QMessageBox>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QPushButton>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace linealis::desktop {

namespace {

constexpr double mmPerPoint = 25.4 / pointsPerInch;

/// Papers are the same if no side differs by more: 1 mm, and what QPageSize::FuzzyMatch allows. Standard papers in
/// whole points are off by so much.
constexpr double sameSidePoints = 3.0;

/// Lines that reach no further out than this are not worth a word.
constexpr double unseenPoints = 0.01 / mmPerPoint;

QSizeF PaperOf(const PageFrame& frame)
{
    return {static_cast<double>(frame.paperWidth), static_cast<double>(frame.paperHeight)};
}

/// The factors of a printer on paper that lies so.
PrinterFactors Turned(const PrinterFactors& factors, QPageLayout::Orientation orientation)
{
    return orientation == QPageLayout::Landscape ? PrinterFactors{factors.y, factors.x} : factors;
}

QString InMm(double points)
{
    return QString::number(points * mmPerPoint, 'f', 1);
}

QString SizeText(const QSizeF& points)
{
    return QStringLiteral("%1 × %2 mm").arg(InMm(points.width()), InMm(points.height()));
}

/// Measures how far the lines of a page reach beyond the room that a printer can print on.
class Overreach final : public PageSink {
public:
    /// `theRoom` is in points from the sheet's upper left corner downwards.
    Overreach(const QRectF& theRoom, double pageHeight, const PrinterFactors& theFactors)
        : room(theRoom), height(pageHeight), factors(theFactors)
    {}

    bool Scale(double sx, double sy) override
    {
        scaleX = sx;
        scaleY = sy;
        return true;
    }
    bool Stroke(PagePath path, const PagePen& /*pen*/) override
    {
        double beyond = 0.0;
        for (const PathSegment& segment : path) {
            beyond = std::max(beyond, Beyond(segment.to));
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
    double Beyond(const Point& point) const
    {
        const double x = point.x * scaleX * factors.x;
        const double y = (height - point.y * scaleY) * factors.y;
        return std::max({room.left() - x, x - room.right(), room.top() - y, y - room.bottom(), 0.0});
    }

    QRectF room;
    double height;
    PrinterFactors factors;
    double scaleX = 1.0;
    double scaleY = 1.0;
};

/// Whether the user prints nevertheless.
bool IsWanted(const std::vector<QString>& warnings, QWidget* parent, const ModalRunner& runModal)
{
    QStringList texts;
    std::copy(warnings.begin(), warnings.end(), std::back_inserter(texts));
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Linealis"), texts.join(QStringLiteral("\n\n")),
                    QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    const QPushButton* const print = box.addButton(QStringLiteral("Print"), QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(QMessageBox::Cancel));
    runModal(box);
    return box.clickedButton() == print;
}

/// The printer, or the file that is printed into.
QString NameOf(const QPrinter& printer)
{
    return printer.outputFileName().isEmpty() ? printer.printerName() : printer.outputFileName();
}

QString PaperName(const QPageSize& paper)
{
    return paper.id() == QPageSize::Custom ? SizeText(paper.size(QPageSize::Point)) : paper.name();
}

QString PrintedText(const QPrinter& printer, const PrinterFactors& factors)
{
    QString text =
        QStringLiteral("Printed on %1, %2, 100 %").arg(NameOf(printer), PaperName(printer.pageLayout().pageSize()));
    if (factors != PrinterFactors{}) {
        text += QStringLiteral(", corrected by %1 across and %2 down").arg(factors.x).arg(factors.y);
    }
    return text;
}

}  // namespace

void SetPaper(QPrinter& printer, const PageFrame& frame)
{
    const QSizeF size = PaperOf(frame);
    const bool isLandscape = size.width() > size.height();
    // Printers know their papers upright, and by name; a file has the size to the point.
    const bool isFile = printer.outputFormat() == QPrinter::PdfFormat;
    const QPageSize paper(isLandscape ? size.transposed() : size, QPageSize::Point, {},
                          isFile ? QPageSize::ExactMatch : QPageSize::FuzzyMatch);
    printer.setFullPage(true);
    printer.setPageSize(paper);
    printer.setPageOrientation(isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

std::vector<QString> PrintWarnings(const QPrinter& printer, const DrawnPage& page, const PrinterFactors& factors)
{
    std::vector<QString> warnings;
    const QPageLayout layout = printer.pageLayout();
    const QRectF sheet(QPointF(), layout.fullRect(QPageLayout::Point).size());
    const QSizeF paper = PaperOf(page.frame);
    if (std::abs(sheet.width() - paper.width()) > sameSidePoints ||
        std::abs(sheet.height() - paper.height()) > sameSidePoints) {
        warnings.push_back(
            QStringLiteral("The printer's paper is %1, the page's %2. The page is printed at 100 % from "
                           "the upper left corner.")
                .arg(SizeText(sheet.size()), SizeText(paper)));
    }
    QPageLayout inPoints = layout;
    inPoints.setUnits(QPageLayout::Point);
    Overreach reach(sheet.marginsRemoved(inPoints.minimumMargins()), paper.height(),
                    Turned(factors, layout.orientation()));
    ReadPage(page.content, reach);
    if (reach.lines > 0) {
        warnings.push_back(QStringLiteral("Lines that reach out of what the printer can print: %1, by up to %2 mm.")
                               .arg(reach.lines)
                               .arg(InMm(reach.furthest)));
    }
    return warnings;
}

bool PaintOnPrinter(QPrinter& printer, const DrawnPage& page, const PrinterFactors& factors)
{
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    const PrinterFactors turned = Turned(factors, printer.pageLayout().orientation());
    painter.scale(printer.logicalDpiX() / pointsPerInch * turned.x,
                  printer.logicalDpiY() / pointsPerInch * turned.y);
    PagePainter sink(painter, static_cast<double>(page.frame.paperHeight));
    ReadPage(page.content, sink);
    return painter.end() && printer.printerState() != QPrinter::Error;
}

QString PrintWithDialog(QPrinter& printer, const DrawnPage& page, const FolderItem& factorsFile, QWidget* parent,
                        const ModalRunner& runModal)
{
    SetPaper(printer, page.frame);
    QPrintDialog dialog(&printer, parent);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile);
    if (runModal(dialog) != QDialog::Accepted) {
        return {};
    }
    const PrinterFactors factors = ReadPrinterFactors(factorsFile, printer.printerName().toStdString());
    const std::vector<QString> warnings = PrintWarnings(printer, page, factors);
    if (!warnings.empty() && !IsWanted(warnings, parent, runModal)) {
        return {};
    }
    return PaintOnPrinter(printer, page, factors)
               ? PrintedText(printer, factors)
               : QStringLiteral("%1 could not be printed on").arg(NameOf(printer));
}

QString PrintWithDialog(const DrawnPage& page, const FolderItem& factorsFile, QWidget* parent,
                        const ModalRunner& runModal)
{
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        return QStringLiteral("No printer is set up on this machine");
    }
    QPrinter printer(QPrinter::HighResolution);
    return PrintWithDialog(printer, page, factorsFile, parent, runModal);
}

}  // namespace linealis::desktop
