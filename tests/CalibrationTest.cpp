#include "check/Calibration.h"

#include "PageSupport.h"
#include "check/PageCheck.h"
#include "desktop/system/PrinterFactors.h"
#include "pipeline/page/PageJob.h"

#include <cmath>

namespace linealis::test {
namespace {

/// The lines of a page that begin on a scale and stand across it: how far from its zero, by the side they stand on.
struct Ticks : PageSink {
    Point zero;
    bool isDown;
    std::vector<double> millimeters, inches;

    Ticks(const std::string& content, Point theZero, bool down) : zero(theZero), isDown(down)
    {
        ReadPage(content, *this);
    }
    bool Scale(double sx, double sy) override { return sx == 1.0 && sy == 1.0; }
    bool Stroke(PagePath path, const PagePen&) override
    {
        const Point from = path[0].to, to = path[1].to;
        const double along = isDown ? zero.y - from.y : from.x - zero.x;
        const double leftOrUp = isDown ? from.x - to.x : to.y - from.y;
        const bool isAcross = isDown ? from.y == to.y && from.x == zero.x : from.x == to.x && from.y == zero.y;
        if (isAcross && along >= 0.0 && leftOrUp != 0.0) {
            (leftOrUp > 0.0 ? millimeters : inches).push_back(along);
        }
        return true;
    }
    bool Fill(PagePath, const PageColor&) override { return true; }
    bool FillAndStroke(PagePath, const PageColor&, const PagePen&) override { return true; }
    bool Text(const PageText&) override { return true; }
};

TEST(Calibration, EveryTickIsWhereItsLengthIs)
{
    for (const CalibrationPaper& paper : CalibrationPapers()) {
        const PaperPage page = CalibrationPage(paper);
        Turns turns([] {});
        const std::string content = DrawPage(page, turns).content.Operator_Convert();
        const CalibrationZeros zeros = ZerosOf(paper);
        for (const Ticks& ticks : {Ticks(content, zeros.across, false), Ticks(content, zeros.down, true)}) {
            ASSERT_EQ(ticks.millimeters.size(), 101U);
            for (std::size_t k = 0; k <= 100; ++k) {
                EXPECT_NEAR(ticks.millimeters[k], static_cast<double>(k) * 72.0 / 25.4, 1e-4) << k;
            }
            ASSERT_EQ(ticks.inches.size(), 65U);
            for (std::size_t k = 0; k <= 64; ++k) {
                EXPECT_NEAR(ticks.inches[k], static_cast<double>(k) * 4.5, 1e-9) << k;
            }
        }
        EXPECT_EQ(Page(content).texts.size(), 2U * (11 + 5 + 2) + 4) << "numbers, units and lines of text";
        for (const PageWarning& warning : ContentWarnings(page, content, {})) {
            ADD_FAILURE() << warning.text.English();
        }
    }
}

TEST(Calibration, CommandWritesTheSheetOfThePaper)
{
    const TemporaryFolder folder;
    const std::string file = folder / "sheet.pdf";
    const auto call = [&](const Names& more) {
        Names command = {LINEALIS_CLI_PATH, "calibration", "-o", file};
        command.insert(command.end(), more.begin(), more.end());
        return Execute(command);
    };
    EXPECT_EQ(call({}).status, 0);
    EXPECT_EQ(Complaints(file), "");
    EXPECT_NE(ReadFile(file).find("/MediaBox[0 0 595 842]"), std::string::npos);
    EXPECT_EQ(call({"--paper", "letter"}).status, 0);
    EXPECT_NE(ReadFile(file).find("/MediaBox[0 0 612 792]"), std::string::npos);
    const Finished wrong = call({"--paper", "a5"});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_EQ(wrong.errors, "linealis-cli: unknown paper 'a5'; possible: a4, letter\n");
    EXPECT_EQ(Execute({LINEALIS_CLI_PATH, "calibration", "-o", folder / "missing/sheet.pdf"}).status, 1);
}

TEST(PrinterFactors, AreKeptByPrinter)
{
    const TemporaryFolder folder;
    const FolderItem file = PrinterFactorsFile(FolderItem(folder / "."));
    EXPECT_EQ(ReadPrinterFactors(file, "Office"), PrinterFactors());
    const PrinterFactors office{FactorOf(100.0, 99.0), 0.995}, home{1.1, 0.9};
    EXPECT_FALSE(WritePrinterFactors(file, "Home 2\nwest", {1.01, 1.0}));
    EXPECT_FALSE(WritePrinterFactors(file, "Office", office));
    EXPECT_FALSE(WritePrinterFactors(file, "Home 2\nwest", home));
    EXPECT_NEAR(ReadPrinterFactors(file, "Office").x, 1.0101010, 1e-6);
    EXPECT_EQ(ReadPrinterFactors(file, "Home 2\nwest"), home);
    EXPECT_EQ(Lines(ReadFile(file.Path()), '\n').back(), "1.1 0.9 Home 2 west");
    EXPECT_FALSE(WritePrinterFactors(file, "Office", {}));
    EXPECT_EQ(ReadFile(file.Path()).find("Office"), std::string::npos) << "factors of 1 are not kept";
    EXPECT_TRUE(WritePrinterFactors(file, "Office", {1.2, 1.0}));
    EXPECT_TRUE(WritePrinterFactors(FolderItem(folder / "missing/file"), "Office", office));
    EXPECT_EQ(ReadPrinterFactors(file, "Home 2\nwest"), home) << "what is refused changes nothing";
    const FolderItem unreadable("/proc/self/mem");
    EXPECT_EQ(WritePrinterFactors(unreadable, "Office", office), std::errc::io_error) << "and is not written anew";
}

TEST(PrinterFactors, BadLinesAndLengthsAreRefused)
{
    const TemporaryFolder folder;
    const FolderItem file(folder / "factors");
    for (const std::string line :
         {"", "\n", "1.2 1.0 P", "1.0 0.8 P", "nan 1 P", "1.05P", "1.05 P", "1.05 1.05", "1.05 1.05 Q", "\xFF\0"}) {
        WriteFile(file.Path(), line + "\n");
        EXPECT_EQ(ReadPrinterFactors(file, "P"), PrinterFactors()) << line;
    }
    for (const std::string length : {"", "90", "111.2", "-100", "0", "1e-320", "100 mm", "nan"}) {
        EXPECT_NE(LengthProblem(Message("across"), length, 100.0)
                      .English()
                      .find("across is '" + length + "'; possible are 90.9 to 111.1"),
                  std::string::npos)
            << length;
    }
    EXPECT_EQ(LengthProblem(Message("down"), "90,95", 100.0).English() +
                  LengthProblem(Message("down"), "111.1", 100.0).English(),
              "");
}

}  // namespace
}  // namespace linealis::test
