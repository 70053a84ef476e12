#include "DesktopTestSupport.h"
#include "desktop/dialogs/CalibrationDialog.h"
#include "desktop/dialogs/PadSheets.h"
#include "desktop/dialogs/PrintPage.h"
#include "pdf/PageContent.h"
#include "pipeline/page/PageJob.h"
#include "text/Numbers.h"

#include <QLineF>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QTransform>
#include <sstream>

namespace linealis::test {
namespace {

constexpr double hundredthMm = 0.01 * 72.0 / 25.4;  // points

/// The points of a page's strokes, in points of the paper from its lower left corner.
struct StrokePoints : PageSink {
    QTransform system;
    std::vector<QPointF> points;

    bool Scale(double sx, double sy) override
    {
        system = QTransform::fromScale(sx, sy);
        return true;
    }
    bool Stroke(PagePath path, const PagePen&) override
    {
        for (const PathSegment& segment : path) {
            if (segment.operation == PageOperator::Curve) {
                points.push_back(system.map(QPointF(segment.control1.x, segment.control1.y)));
                points.push_back(system.map(QPointF(segment.control2.x, segment.control2.y)));
            }
            points.push_back(system.map(QPointF(segment.to.x, segment.to.y)));
        }
        return true;
    }
    bool Fill(PagePath, const PageColor&) override { return true; }
    bool FillAndStroke(PagePath path, const PageColor&, const PagePen& pen) override { return Stroke(path, pen); }
    bool Text(const PageText&) override { return true; }
};

/// The same of a page that Qt has printed into a PDF file.
std::vector<QPointF> PrintedPoints(const std::string& file)
{
    const std::string pdf = Execute({"qpdf", "--qdf", "--object-streams=disable", file, "-"}).output;
    const std::size_t start = pdf.find("stream\n") + 7;
    std::istringstream content(pdf.substr(start, pdf.find("endstream") - start));
    std::vector<QPointF> points, path;
    std::vector<double> numbers;
    std::vector<QTransform> systems(1);
    for (std::string token; content >> token;) {
        if (IsNumber(token)) {
            numbers.push_back(Val(token));
            continue;
        }
        if (token == "q") {
            systems.push_back(systems.back());
        } else if (token == "Q") {
            systems.pop_back();
        } else if (token == "cm") {
            systems.back() =
                QTransform(numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5]) * systems.back();
        } else if (token == "m" || token == "l" || token == "c") {
            for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
                path.push_back(systems.back().map(QPointF(numbers[i], numbers[i + 1])));
            }
        } else if (token == "S") {
            points.insert(points.end(), path.begin(), path.end());
        }
        if (token == "S" || token.starts_with('f') || token == "n" || token.starts_with('W')) {
            path.clear();
        }
        numbers.clear();
    }
    return points;
}

DrawnPage Draw(PaperWindow& window)
{
    Turns turns([] {});
    return DrawPage(window.ReadPage(), turns);
}

template <typename Page>
PaperSize SizeOf(const Page& page)
{
    return {page.frame.paperWidth, page.frame.paperHeight};
}

class Print : public testing::Test {
protected:
    Print() { PrintInto(printer); }

    void PrintInto(QPrinter& device) const
    {
        device.setOutputFormat(QPrinter::PdfFormat);
        device.setResolution(1200);
        device.setOutputFileName(ToQt(file));
    }
    bool HasPaper(const PageFrame& frame) const
    {
        const std::string size = std::to_string(frame.paperWidth) + " x " + std::to_string(frame.paperHeight);
        return Execute({"pdfinfo", file}).output.find(" " + size + " pts") != std::string::npos;
    }
    /// Has the printer margins of its own, in points.
    void Limit(double margin) { Limit({margin, margin, margin, margin}); }
    void Limit(const QMarginsF& margins)
    {
        QPageLayout layout = printer.pageLayout();
        layout.setUnits(QPageLayout::Point);
        layout.setMinimumMargins(margins);
        ASSERT_TRUE(printer.setPageLayout(layout));
    }
    std::vector<std::string> Warnings(const DrawnPage& page, const PrinterFactors& factors = {}) const
    {
        std::vector<std::string> texts;
        for (const QString& text : desktop::PrintWarnings(printer, page, factors)) {
            texts.push_back(text.toStdString());
        }
        return texts;
    }

    TemporaryFolder folder;
    std::string file = folder / "printed.pdf";
    ScreenlessPlatform platform;
    Turns turns{[] {}};
    QPrinter printer{QPrinter::HighResolution};
};

TEST_F(Print, EveryLineIsWhereTheContentHasIt)
{
    int paper = 0;
    for (const PaperKind& kind : PaperKinds()) {
        SCOPED_TRACE(kind.name);
        const auto window = MakeWindow(kind, platform);
        const NamedForm form(window->form);
        form.SetListIndex("PopupPaperSize", paper % form["PopupPaperSize"].items);
        form.SetListIndex("PopupOrientation", paper % 2);
        form.SetText("EditCustomWidth", "7.77");
        form.SetText("EditXScale", "97.3");
        const DrawnPage page = Draw(*window);
        StrokePoints expected;
        ReadPage(page.content, expected);
        for (const PrinterFactors& factors : {PrinterFactors{}, PrinterFactors{100.0 / 99.0, 0.98}}) {
            QPrinter device(QPrinter::HighResolution);
            PrintInto(device);
            desktop::SetPaper(device, desktop::PrintedSheets(page).paper);
            ASSERT_TRUE(desktop::PaintOnPrinter(device, page, turns, factors));
            EXPECT_TRUE(HasPaper(page.frame));
            const bool isLandscape = page.frame.paperWidth > page.frame.paperHeight;
            const double x = isLandscape ? factors.y : factors.x, y = isLandscape ? factors.x : factors.y;
            const auto height = static_cast<double>(page.frame.paperHeight);
            const std::vector<QPointF> printed = PrintedPoints(file);
            ASSERT_EQ(printed.size(), expected.points.size());
            double furthest = 0.0;
            for (std::size_t i = 0; i < printed.size(); ++i) {
                const QPointF& point = expected.points[i];
                const QPointF off = printed[i] - QPointF(point.x() * x, height - (height - point.y()) * y);
                furthest = std::max({furthest, std::abs(off.x()), std::abs(off.y())});
            }
            EXPECT_LT(furthest, hundredthMm);
        }
        ++paper;
    }
}

TEST_F(Print, PadHasEveryPageInItsPlaceOnTheSheet)
{
    const auto window = MakeWindow(*FindPaperKind("grid"), platform);
    SetControl("grid", window->form, {"paper-size", "A5"});
    const DrawnPage page = Draw(*window);
    desktop::PadJob job;
    job.form = window->ReadPage();
    job.back = job.form;
    job.plan = {PadLayout{3, 2, true, SizeOf(page)}, 1, true};
    const desktop::PrintedSheets sheets = desktop::PadSheets(job, turns);
    desktop::SetPaper(printer, sheets.paper);
    ASSERT_TRUE(desktop::PaintOnPrinter(printer, sheets, turns));
    const std::string info = Execute({"pdfinfo", file}).output;
    EXPECT_NE(info.find("842 x 595 pts"), std::string::npos) << info;
    EXPECT_NE(info.find("Pages:           4\n"), std::string::npos) << info;
    StrokePoints expected;
    ReadPage(page.content, expected);
    const std::size_t count = expected.points.size(), ofMarks = 4;
    const std::vector<QPointF> printed = PrintedPoints(file);
    ASSERT_EQ(printed.size(), 2 * count + ofMarks);
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_LT(QLineF(printed[i], expected.points[i]).length(), hundredthMm);
        EXPECT_LT(QLineF(printed[i + count], expected.points[i] + QPointF(421.0, 0.0)).length(), hundredthMm);
    }
}

TEST_F(Print, APosterKeepsToItsSheetsAndABookletToItsPages)
{
    const auto window = MakeWindow(*FindPaperKind("grid"), platform);
    SetControl("grid", window->form, {"paper-size", "A4"});
    desktop::PadJob job;
    job.form = window->ReadPage();
    job.plan.sheets = PosterOn({421, 595}, SizeOf(job.form), 28.0);
    const desktop::PrintedSheets poster = desktop::PadSheets(job, turns);
    EXPECT_EQ(poster.sides, 4);
    desktop::SetPaper(printer, poster.paper);
    Limit(posterMargin - 1.0);
    EXPECT_TRUE(desktop::PrintWarnings(printer, poster).empty()) << "lines are cut off at the margin";
    Limit(posterMargin + 1.0);
    EXPECT_EQ(desktop::PrintWarnings(printer, poster).size(), 1U);

    constexpr double creep = 5.0;
    job.plan.sheets = Booklet{{8, 1, false, SizeOf(job.form)}, creep};
    const desktop::PrintedSheets booklet = desktop::PadSheets(job, turns);
    EXPECT_EQ(booklet.sides, 4);
    EXPECT_TRUE(booklet.hasBacks);
    const auto width = static_cast<double>(job.form.frame.paperWidth);
    std::vector<QRectF> pages;
    booklet.forPages(2, [&](const desktop::PrintedPage& page) {
        if (!page.isMarks) {
            pages.push_back(page.clip);
        }
    });
    ASSERT_EQ(pages.size(), 2U) << "on the front of the inner sheet";
    EXPECT_EQ(pages[0].left(), creep);
    EXPECT_EQ(pages[1].left(), width - creep);
    EXPECT_EQ(pages[1].width(), width);
}

TEST_F(Print, OnlyPaperWiderThanHighLiesAcross)
{
    desktop::SetPaper(printer, {400.0, 400.0});
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Portrait);
    desktop::SetPaper(printer, {401.0, 400.0});
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
}

TEST_F(Print, WarnsOfAnotherPaperAndOfLinesOutOfReach)
{
    const auto window = MakeWindow(*FindPaperKind("grid"), platform);  // lines from 36 points on
    const DrawnPage page = Draw(*window);
    desktop::SetPaper(printer, desktop::PrintedSheets(page).paper);
    Limit(36.0);
    EXPECT_EQ(Warnings(page), Names());
    const std::vector<std::string> grown = Warnings(page, {1.01, 1.0});
    ASSERT_EQ(grown.size(), 1U);
    EXPECT_NE(grown[0].find("by up to 2.0 mm"), std::string::npos) << grown[0];
    Limit(36.5);
    EXPECT_EQ(Warnings(page).size(), 1U);
    printer.setPageOrientation(QPageLayout::Landscape);
    const std::vector<std::string> turned = Warnings(page);
    ASSERT_EQ(turned.size(), 2U);
    EXPECT_NE(turned[0].find("279.4 × 215.9 mm, the page's 215.9 × 279.4 mm"), std::string::npos) << turned[0];
    Limit({0.0, 0.0, 0.0, 36.5});
    window->form.Get<Popup>("PopupOrientation").SetListIndex(1);
    EXPECT_EQ(Warnings(Draw(*window)).size(), 1U) << "the lower margin of upright paper is at a side";
}

TEST_F(Print, TheDialogsLeadToTheSheetOrToNothing)
{
    const auto window = MakeWindow(*FindPaperKind("grid"), platform);
    DrawnPage page = Draw(*window);
    Names shown;
    bool prints = true;
    const auto run = [&](QDialog& dialog) {
        dialog.show();
        if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
            shown.push_back(box->text().toStdString());
            Click(*box->buttons().at(prints ? 0 : 1));
        } else {
            dialog.accept();
        }
        return dialog.result();
    };
    const auto print = [&] {
        return desktop::PrintWithDialog(printer, page, turns, {}, nullptr, run).toStdString();
    };
    EXPECT_EQ(desktop::PrintWithDialog(printer, page, turns, {}, nullptr, [](QDialog&) { return 0; }), QString());
    EXPECT_EQ(folder.Names(), Names());
    const std::string said = print();
    EXPECT_TRUE(said.starts_with("Printed on " + file + ", Letter") && said.ends_with(", 100 %")) << said;
    EXPECT_EQ(shown, Names());
    fs::remove(file);
    page.content.AppendString("0 0 m\r-36 0 l\rS\r");
    prints = false;
    EXPECT_EQ(print(), "");
    EXPECT_EQ(folder.Names(), Names());
    prints = true;
    EXPECT_NE(print(), "");
    EXPECT_EQ(folder.Names(), Names{"printed.pdf"});
    EXPECT_EQ(shown, Names(2, "1 line extends beyond the printable area, by up to 12.7 mm."));
    Turns stopped([] { throw PageStopped{}; });
    EXPECT_THROW(desktop::PrintWithDialog(printer, page, stopped, {}, nullptr, run), PageStopped);
    EXPECT_EQ(folder.Names(), Names());
    printer.setOutputFileName(ToQt(std::string(folder / "missing/printed.pdf")));
    EXPECT_NE(print().find("could not be printed on"), std::string::npos);
}

TEST_F(Print, CalibrationKeepsFactorsByPrinter)
{
    const FolderItem factors(folder / "factors");
    std::pair<double, double> taken;
    desktop::CalibrationDialog dialog(
        {"Office", "Home"}, factors, [](QDialog&) { return 0; },
        [&](double x, double y) {
            taken = {x, y};
        },
        nullptr);
    dialog.show();
    const auto enter = [&](std::string_view across, std::string_view down, std::string_view button) {
        Fill(Child<QLineEdit>(dialog, "CalibrationAcross"), across);
        Fill(Child<QLineEdit>(dialog, "CalibrationDown"), down);
        Click(Child(dialog, button));
        return Shown(dialog, "CalibrationMessage");
    };
    EXPECT_EQ(enter("99", "100,5", "CalibrationSave"), "Saved for Office.");
    EXPECT_EQ(Shown(dialog, "CalibrationFactors"), "1.010101 across, 0.9950249 down");
    EXPECT_NEAR(ReadPrinterFactors(factors, "Office").x, 100.0 / 99.0, 1e-6);
    EXPECT_NEAR(ReadPrinterFactors(factors, "Office").y, 100.0 / 100.5, 1e-6);
    enter("98", "101", "CalibrationTakeOver");
    EXPECT_NEAR(taken.first, 10000.0 / 98.0, 1e-9);
    EXPECT_NEAR(taken.second, 10000.0 / 101.0, 1e-9);
    EXPECT_NE(enter("99", "80", "CalibrationSave").find("down is '80'; possible are 90.9 to 111.1 mm"),
              std::string::npos);
    Choose(Child<QComboBox>(dialog, "CalibrationPrinter"), "Home");
    EXPECT_EQ(Shown(dialog, {"CalibrationAcross", "CalibrationDown"}), "100 100");
    Choose(Child<QComboBox>(dialog, "CalibrationPrinter"), "Office");
    EXPECT_EQ(Shown(dialog, {"CalibrationAcross", "CalibrationDown"}), "99 100.5");
    Click(Child(dialog, "CalibrationReset"));
    EXPECT_EQ(ReadPrinterFactors(factors, "Office"), PrinterFactors());
    Fill(Child<QLineEdit>(dialog, "CalibrationAcross"), "98");
    Press(dialog, Qt::Key_Return);
    EXPECT_NEAR(ReadPrinterFactors(factors, "Office").x, 100.0 / 98.0, 1e-6);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(Print, SaysHowManyCopies)
{
    printer.setCopyCount(3);
    EXPECT_EQ(desktop::PrintedText(printer, {}).indexOf(QStringLiteral("copies")), -1) << "of a file";
    QPrinter device(QPrinter::HighResolution);
    device.setCopyCount(3);
    EXPECT_TRUE(desktop::PrintedText(device, {}).endsWith(QStringLiteral(", 3 copies, 100 %")));
}

TEST_F(Print, WithoutAPrinterItOffersPdf)
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) {
        GTEST_SKIP() << "there is a printer here";
    }
    const auto window = MakeWindow(*FindPaperKind("grid"), platform);
    const std::string made = QDir::homePath().toStdString() + "/Wall.pdf";
    const auto accept = [](QDialog& dialog) {
        dialog.show();
        EXPECT_EQ(dynamic_cast<QPrintDialog&>(dialog).printer()->docName(), QStringLiteral("Wall"));
        dialog.accept();
        return dialog.result();
    };
    const QString said =
        desktop::PrintWithDialog(Draw(*window), turns, QStringLiteral("Wall"), {}, nullptr, accept);
    EXPECT_TRUE(said.startsWith(ToQt("Printed on " + made))) << said.toStdString();
    EXPECT_TRUE(fs::remove(made));
    desktop::CalibrationDialog dialog({}, {}, {}, {}, nullptr);
    for (const char* const button : {"CalibrationPrint", "CalibrationSave", "CalibrationTakeOver"}) {
        EXPECT_FALSE(Child(dialog, button).isEnabled()) << button;
    }
}

}  // namespace
}  // namespace linealis::test
