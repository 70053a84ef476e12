#include "TestSupport.h"
#include "exchange/FormJson.h"
#include "pdf/PdfAttachment.h"

namespace linealis::test {
namespace {

class CliPad : public testing::Test {
protected:
    Finished Shell(const std::string& script) const { return RunInShell(folder, script); }

    /// The content of a page of the file, as another reader has it.
    std::string Content(const std::string& file, int page) const
    {
        return Shell("mutool show -b " + file + " pages/" + std::to_string(page) + "/Contents").output;
    }

    std::string Info(const std::string& file) const
    {
        return Shell("qpdf --check " + file + " > /dev/null && pdfinfo " + file +
                     " | sed -n 's/^Pages: */pages /p; s/^Page size: *\\([0-9.]*\\) x \\([0-9.]*\\).*/size \\1 "
                     "\\2/p'")
            .output;
    }

    TemporaryFolder folder;
};

TEST_F(CliPad, PagesAreThoseOfGenerateInTurns)
{
    std::string all;
    int kinds = 0;
    for (const PaperKind& kind : PaperKinds()) {
        all += " " + std::string(kind.name);
        ++kinds;
    }
    const Finished made =
        Shell("$cli pad" + all + " --set paper-size=A4 --pages " + std::to_string(2 * kinds) + " -o pad.pdf");
    EXPECT_EQ(made.status, 0) << made.errors;
    EXPECT_EQ(Info("pad.pdf"), "pages 28\nsize 595 842\n");
    int page = 0;
    for (const PaperKind& kind : PaperKinds()) {
        ++page;
        const Finished alone =
            Shell("$cli generate " + std::string(kind.name) + " --set paper-size=A4 -o page.pdf");
        EXPECT_EQ(alone.status, 0) << alone.errors;
        const std::string content = Content("page.pdf", 1);
        EXPECT_GT(content.size(), 100U);
        EXPECT_EQ(Content("pad.pdf", page), content) << kind.name;
        EXPECT_EQ(Content("pad.pdf", page + kinds), content) << kind.name;
    }
    EXPECT_EQ(Shell("$cli form lined --set paper-size=A6 | $cli pad --form - --pages 2 -o pad.pdf").errors, "");
    EXPECT_EQ(Info("pad.pdf"), "pages 2\nsize 297 421\n");
    EXPECT_EQ(Shell("$cli pad grid dots --set x-scale=50 -o pad.pdf").errors,
              "linealis-cli: warning: grid: X Scale is 50%: lengths on the page are not true to size\n"
              "linealis-cli: warning: dots: X Scale is 50%: lengths on the page are not true to size\n");
    // The content of a page is in the file once.
    EXPECT_EQ(Shell("$cli pad dots --pages 500 -o many.pdf; $cli pad dots --pages 501 -o more.pdf").status, 0);
    EXPECT_LT(fs::file_size(folder / "more.pdf") - fs::file_size(folder / "many.pdf"), 250U);
}

TEST_F(CliPad, SidesOfSeveralPagesAreCutWhereTheMarksAre)
{
    const std::string a5 = "$cli pad grid --set paper-size=A5 --pages 3 -o pad.pdf ";
    EXPECT_EQ(Shell(a5 + "--up 2").status, 0);
    EXPECT_EQ(Info("pad.pdf"), "pages 2\nsize 842 595\n");
    const std::string gray = "q\n0.50 0.50 0.50 RG\r0.50 0.50 0.50 rg\r0.25 w\r";
    const std::string marks = gray + "421 0 m\r421 24 l\rS\r421 571 m\r421 595 l\rS\rQ\n";
    const std::string left = "q 1 0 0 1 0 0 cm /Page0 Do Q\n", right = "q 1 0 0 1 421 0 cm /Page0 Do Q\n";
    EXPECT_EQ(Content("pad.pdf", 1), left + right + marks);
    EXPECT_EQ(Content("pad.pdf", 2), left + marks);
    EXPECT_EQ(Shell(a5 + "--up 2 --set orientation=Landscape").status, 0);
    EXPECT_EQ(Info("pad.pdf"), "pages 2\nsize 595 842\n");
    EXPECT_EQ(Content("pad.pdf", 1), "q 1 0 0 1 0 421 cm /Page0 Do Q\nq 1 0 0 1 0 0 cm /Page0 Do Q\n" + gray +
                                         "0 421 m\r24 421 l\rS\r571 421 m\r595 421 l\rS\rQ\n");

    // Printed and cut, the pages are those that were not: as pictures they agree.
    EXPECT_EQ(Shell("$cli pad dots polar --set paper-size=A6 --pages 4 --up 4 -o pad.pdf\n"
                    "$cli generate polar --set paper-size=A6 -o page.pdf 2>/dev/null\n"
                    "pdftoppm -r 72 -gray -x 297 -y 421 -W 297 -H 421 pad.pdf cut\n"
                    "pdftoppm -r 72 -gray page.pdf page\n"
                    "cmp -l cut-1.pgm page-1.pgm > differ; true")
                  .status,
              0);
    constexpr std::size_t ofMarks = 2 * 24 + 14 + 4;  // pixels of a point
    EXPECT_LT(Lines(ReadFile(folder / "differ"), '\n').size(), ofMarks);
}

TEST_F(CliPad, BacksLieBehindEveryPageOnTheSamePaper)
{
    const Finished made = Shell("$cli pad grid --set paper-size=A5 --pages 3 --back lined -o pad.pdf");
    EXPECT_EQ(made.status, 0) << made.errors;
    EXPECT_EQ(Info("pad.pdf"), "pages 6\nsize 421 595\n");
    EXPECT_EQ(Shell("$cli generate lined --set paper-size=A5 -o page.pdf").status, 0);
    EXPECT_EQ(Content("pad.pdf", 6), Content("page.pdf", 1));
    EXPECT_EQ(Shell("$cli pad grid --set paper-size=A5 --pages 3 --up 2 --back lined -o pad.pdf").status, 0);
    EXPECT_EQ(Info("pad.pdf"), "pages 4\nsize 842 595\n");
    EXPECT_EQ(Content("pad.pdf", 4), Content("pad.pdf", 2)) << "the back is full: the printer mirrors it";
}

TEST_F(CliPad, ATableGivesEachPageInTheOrderOfTheStacks)
{
    std::string rows = "top-margin\n";
    for (int row = 1; row <= 5; ++row) {
        rows += std::to_string(row) + "\n";
    }
    WriteFile(folder / "rows.csv", rows);
    EXPECT_EQ(
        Shell("$cli pad grid --table rows.csv -o pad.pdf; $cli pad grid --table rows.csv --up 2 -o two.pdf").errors,
        "");
    EXPECT_EQ(Info("pad.pdf"), "pages 5\nsize 612 792\n");
    for (int row = 1; row <= 5; ++row) {
        Shell("$cli generate grid --set top-margin=" + std::to_string(row) + " -o page.pdf");
        EXPECT_EQ(Content("pad.pdf", row), Content("page.pdf", 1)) << row;
    }
    const std::vector<std::vector<std::string>> sides = {{"/Page0", "/Page3"}, {"/Page1", "/Page4"}, {"/Page2"}};
    for (std::size_t side = 0; side < sides.size(); ++side) {
        const std::string content = Content("two.pdf", static_cast<int>(side) + 1);
        for (const std::string& page : sides[side]) {
            EXPECT_NE(content.find(page + " Do"), std::string::npos) << side << page;
        }
    }
    EXPECT_EQ(Shell("mutool show pad.pdf trailer/Root/ViewerPreferences/PrintScaling").output, "/None\n");
}

TEST_F(CliPad, ABookletReadsInOrderWhenItIsFolded)
{
    EXPECT_EQ(Shell("$cli pad dots --set paper-size=A6 --booklet --pages 6 --numbers --creep 1mm --dates "
                    "2026-12-30 -o pad.pdf")
                  .errors,
              "");
    EXPECT_EQ(Info("pad.pdf"), "pages 4\nsize 594 421\n");
    // The fronts and backs of the outer and the inner sheet: two pages of eight are blank.
    const std::vector<std::string> sides = {"2026-12-30 1", "2026-12-31 2", "2027-01-04 2027-01-01 6 3",
                                            "2027-01-02 2027-01-03 4 5"};
    for (std::size_t i = 0; i < sides.size(); ++i) {
        const std::string page = std::to_string(i + 1);
        EXPECT_EQ(Shell("pdftotext -layout -f " + page + " -l " + page + " pad.pdf - | tr -d '\\f' | xargs").output,
                  sides[i] + "\n");
    }
    EXPECT_NE(Content("pad.pdf", 2).find("q 1 0 0 1 0 0 cm"), std::string::npos);
    EXPECT_NE(Content("pad.pdf", 3).find("q 1 0 0 1 2.835 0 cm"), std::string::npos) << "toward the fold";
    EXPECT_NE(Content("pad.pdf", 3).find("q 1 0 0 1 294.165 0 cm"), std::string::npos);
}

TEST_F(CliPad, APosterPutTogetherIsThePage)
{
    EXPECT_EQ(Shell("$cli pad polar --set paper-size=A3 --poster A4 --overlap 57pt -o poster.pdf").errors, "");
    EXPECT_EQ(Info("poster.pdf"), "pages 4\nsize 595 842\n");
    // Each sheet, as a picture, is its part of the page.
    EXPECT_EQ(Shell("$cli generate polar --set paper-size=A3 -o page.pdf 2>/dev/null").status, 0);
    const std::vector<std::string> names = {"A1", "B1", "A2", "B2"};
    const int step[] = {561 - 57, 808 - 57};
    for (int sheet = 0; sheet < 4; ++sheet) {
        const std::string page = std::to_string(sheet + 1);
        EXPECT_NE(Shell("pdftotext -f " + page + " -l " + page + " poster.pdf -")
                      .output.find(names[static_cast<std::size_t>(sheet)]),
                  std::string::npos);
        const int x = sheet % 2 * step[0], y = sheet / 2 * step[1];
        Shell("pdftoppm -r 72 -gray -f " + page + " -l " + page +
              " -x 20 -y 20 -W 300 -H 380 -singlefile poster.pdf part\n"
              "pdftoppm -r 72 -gray -x " +
              std::to_string(x + 3) + " -y " + std::to_string(y + 3) + " -W 300 -H 380 -singlefile page.pdf whole");
        const std::string part = ReadFile(folder / "part.pgm"), whole = ReadFile(folder / "whole.pgm");
        ASSERT_EQ(part.size(), whole.size());
        std::size_t differ = 0;
        for (std::size_t i = 0; i < part.size(); ++i) {
            differ += std::abs(static_cast<unsigned char>(part[i]) - static_cast<unsigned char>(whole[i])) > 100
                          ? 1U
                          : 0U;
        }
        EXPECT_LT(differ, 20U) << page;
    }
}

TEST_F(CliPad, NumbersAreInTheOrderOfTheStacks)
{
    struct {
        std::string options;
        std::vector<std::string> numbers;  // of each side
    } const cases[] = {
        {"--pages 3", {"1", "2", "3"}},
        {"--pages 2 --copies 2 --back grid", {"1", "", "2", "", "1", "", "2", ""}},
        {"--pages 4 --up 2", {"1 3", "2 4"}},
        {"--pages 6 --up 4", {"1 3 5 6", "2 4"}},
    };
    for (const auto& each : cases) {
        const Finished made = Shell("$cli pad dots --set paper-size=A6 --numbers -o pad.pdf " + each.options);
        EXPECT_EQ(made.status, 0) << made.errors;
        EXPECT_EQ(Info("pad.pdf").substr(0, 8), "pages " + std::to_string(each.numbers.size()) + "\n");
        for (std::size_t i = 0; i < each.numbers.size(); ++i) {
            const std::string page = std::to_string(i + 1);
            EXPECT_EQ(Shell("pdftotext -f " + page + " -l " + page + " pad.pdf - | tr -d '\\f' | xargs").output,
                      each.numbers[i] + "\n")
                << each.options;
        }
    }
}

TEST_F(CliPad, FormsInThePadMakeItAgain)
{
    const std::string dated = "export SOURCE_DATE_EPOCH=0\n";
    const auto attached = [&] { return Shell("pdfdetach -list pad.pdf | sed -n 's/^[0-9]*: //p' | xargs").output; };
    // The same form on a front and on the back is in the file once. The first is the one that is read.
    EXPECT_EQ(Shell(dated + "$cli save hexagon --set paper-size=A6 --set left-margin=1.5 -o h.seth\n"
                            "$cli pad h.seth lined --set paper-size=A6 --pages 4 --back h.seth -o pad.pdf")
                  .errors,
              "");
    EXPECT_EQ(attached(), "front-1.json front-2.json\n");
    EXPECT_EQ(Shell("qpdf --check pad.pdf > /dev/null; echo $?").output, "0\n");
    EXPECT_EQ(Shell(dated + "$cli generate pad.pdf -o a.pdf; $cli generate h.seth -o b.pdf; cmp a.pdf b.pdf\n"
                            "$cli generate hexagon --form pad.pdf -o b.pdf; cmp a.pdf b.pdf\n"
                            "pdfdetach -save 2 -o second.json pad.pdf; $cli generate second.json -o a.pdf\n"
                            "$cli generate lined --set paper-size=A6 -o b.pdf; cmp a.pdf b.pdf")
                  .output,
              "");
    // A pad of a table carries what its rows are laid over, and the table.
    EXPECT_EQ(Shell(dated +
                    "printf 'top-margin\\n1\\n2\\n' > t.csv\n"
                    "$cli pad dots --set paper-size=A5 --numbers --table t.csv -o pad.pdf\n"
                    "pdfdetach -saveall pad.pdf; cmp t.csv table.csv; rm t.csv\n"
                    "$cli pad --form pad.pdf --numbers --table - -o again.pdf < table.csv; cmp pad.pdf again.pdf")
                  .errors,
              "");
    EXPECT_EQ(attached(), "table.csv table.json\n");
    EXPECT_EQ(Shell("$cli generate pad.pdf -o pad.pdf").errors,
              "linealis-cli: refusing to overwrite the input pad.pdf\n");
    EXPECT_EQ(Shell("$cli generate lined -o page.pdf; $cli show page.pdf").errors,
              "linealis-cli: page.pdf: carries no form; of PDF files, only those of pads do\n");
}

TEST_F(CliPad, DamagedFilesGiveNoFormOrAWholeOne)
{
    EXPECT_EQ(Shell("$cli pad lined --pages 2 -o pad.pdf").errors, "");
    const std::string pad = ReadFile(folder / "pad.pdf"), type = "application/json";
    const std::string form(PdfAttachmentIn(pad, type));
    const std::size_t begin = pad.find(form), end = begin + form.size();
    EXPECT_EQ(ParseForm("f", pad).kind, "lined");
    for (std::size_t size = 0; size < end; ++size) {
        EXPECT_EQ(PdfAttachmentIn(std::string_view(pad).substr(0, size), type), "") << size;
    }
    EXPECT_EQ(PdfAttachmentIn(std::string_view(pad).substr(0, end), type), form);
    const std::size_t length = pad.rfind("/Length ", begin) + 8, digits = pad.find('>', length) - length;
    for (const char* const given :
         {"", "-1", "x", "99999999", "18446744073709551615", "99999999999999999999", "0"}) {
        std::string damaged = pad;
        damaged.replace(length, digits, given);
        EXPECT_EQ(PdfAttachmentIn(damaged, type), "") << given;
        EXPECT_THROW(ParseForm("f", damaged), FormError) << given;
    }
    std::string shorter = pad;
    EXPECT_THROW(ParseForm("f", shorter.replace(length, digits, "9")), FormError) << "half a form";
}

TEST_F(CliPad, BadInputLeavesTheOldFile)
{
    WriteFile(folder / "pad.pdf", "old");
    EXPECT_EQ(Shell("$cli save lined -o a4.setl --set paper-size=A4").status, 0);
    const std::string cli = "linealis-cli: ";
    const auto fails = [&](int status, const std::string& command, const std::string& error) {
        const Finished call = Shell(command);
        EXPECT_EQ(call.status, status) << command;
        EXPECT_EQ(call.errors.substr(0, (cli + error).size()), cli + error);
    };
    fails(2, "$cli pad grid --up 3 -o pad.pdf", "unknown number of pages on a side '3'; possible: 1, 2, 4\n");
    fails(2, "$cli pad grid -o p.svg", "unknown ending of -o '.svg'; possible: .pdf, none, which is a PDF file\n");
    fails(2, "$cli pad grid --pages 0 -o pad.pdf", "--pages: Value 0 not in range 1 to 10000");
    fails(2, "$cli pad grid --back gird -o pad.pdf", "unknown kind 'gird'; possible: grid, ");
    fails(
        2, "$cli pad grid --back a4.setl -o pad.pdf",
        "the pages of a sheet must be of one size, but grid has 612 by 792 points and a4.setl 595 by 842 points\n");
    fails(2, "$cli pad grid --booklet --up 2 -o pad.pdf", "--booklet does not go with --up\n");
    fails(2, "$cli pad grid --poster A4 --back lined -o pad.pdf", "--poster does not go with --back\n");
    fails(2, "$cli pad grid lined --poster A4 -o pad.pdf", "--poster takes one page, but 2 are given\n");
    fails(2, "$cli pad grid --poster a44 -o pad.pdf", "unknown paper 'a44'; possible: ");
    fails(2, "$cli pad grid --poster A6 --overlap 4in -o pad.pdf",
          "a poster of grid on A6 with an overlap of 4in has no room\n");
    fails(2, "$cli pad grid --poster A6 --overlap wide -o pad.pdf",
          "--overlap is 'wide', but must be a length such as 5mm or 1/4in, at most 101 mm\n");
    fails(2, "$cli pad grid --creep 1mm -o pad.pdf", "--creep goes with --booklet alone\n");
    fails(2, "$cli pad grid --dates 2026-02-29 -o pad.pdf",
          "--dates is '2026-02-29', but must be a date such as 2026-12-31\n");
    fails(2, "printf 'paper-size\\nA99\\n' > bad.csv; $cli pad grid --table bad.csv -o pad.pdf",
          "bad.csv, row 1: unknown item");
    fails(1, "printf 'top-margin\\n' > no.csv; $cli pad grid --table no.csv -o pad.pdf",
          "no.csv: has no rows below its header\n");
    fails(2, "$cli pad a4.setl -o a4.setl", "refusing to overwrite the input a4.setl\n");
    fails(2, "$cli pad grid --back a4.setl -o a4.setl", "refusing to overwrite the input a4.setl\n");
    fails(1, "$cli pad grid -o /dev/full", "/dev/full: No space left on device\n");
    fails(1, "ulimit -f 1; trap '' XFSZ; $cli pad grid lined graph -o pad.pdf", "pad.pdf: File too large\n");
    EXPECT_EQ(ReadFile(folder / "pad.pdf"), "old");
}

}  // namespace
}  // namespace linealis::test
