#include "TestSupport.h"
#include "pdf/MyPDFGenerator.h"
#include "pdf/PdfObjects.h"

#include <array>
#include <cstdio>
#include <random>
#include <utility>

namespace linealis::test {
namespace {

const char* const someDate = "(D:20240131174501+01'00')";

class PdfFile : public testing::Test {
protected:
    PdfFile() { platform.clock = someTime; }

    void SetUp() override { pdf.OpenFilename(page); }

    void Begin(std::int64_t width = 612, std::int64_t height = 792)
    {
        EXPECT_EQ(pdf.CreateNew(), 0);
        pdf.SetInfo("Title", "Not in the file");
        pdf.BeginPage(width, height);
        pdf.InitGraphics();
    }

    std::string Close()
    {
        pdf.EndPage();
        pdf.CloseFile(platform);
        pdf.Delete();
        return ReadFile(page.Path());
    }

    /// Draws lines until the page's text is so many bytes long.
    void FillTo(std::size_t size)
    {
        if (size % 2 == 1) {
            pdf.SetLineWidth(10);  // five bytes
        }
        while (pdf.Stream().size() < size) {
            pdf.Stroke();  // two
        }
        ASSERT_EQ(pdf.Stream().size(), size);
    }

    TemporaryFolder folder;
    FolderItem page{folder / "page.pdf"};
    ScreenlessPlatform platform;
    Turns turns{[this] { platform.Yield(); }};
    MyPDFGenerator pdf{turns};
};

/// The file as it must be round the given stream data, its offsets counted here.
std::string WholeFile(std::string_view streamData, const std::string& width, const std::string& height)
{
    std::string file = "%PDF-1.4\r";
    std::vector<std::size_t> offsets;
    const auto object = [&](std::string_view body) {
        offsets.push_back(file.size());
        file.append(std::to_string(offsets.size())).append(" 0 obj\r").append(body).append("endobj\r");
    };
    const auto font = [&](const std::string& name) {
        object("<</Type/Font\r/Subtype/Type1\r/BaseFont/" + name + "\r/Encoding/MacRomanEncoding\r>>\r");
    };
    object("[/PDF]\r");
    object("<</Type/Pages\r/Count 1\r/Kids[ 3 0 R]\r>>\r");
    object("<</Type/Page\r/Parent 2 0 R\r/Contents 4 0 R\r/Resources 8 0 R\r/MediaBox[0 0 " + width + " " + height +
           "]\r>>\r");
    object("<</Length 5 0 R /Filter /FlateDecode\r>>\rstream\r" + std::string(streamData) + "endstream\r");
    object(std::to_string(streamData.size() - 1) + "\r");
    object("<</Subject (Width: " + width + "  Height: " + height +
           ")\r/Title (Linealis)\r/Author (Tallowmere Works)\r/Creator (Linealis)\r/CreationDate " + someDate +
           "\r/Producer (Linealis)\r>>\r");
    font("Courier");
    object("<</ProcSet 1 0 R\r/Font<</F0 7 0 R\r/F1 7 0 R\r/F2 10 0 R\r/F3 11 0 R\r/F4 12 0 R\r/F5 13 0 R\r"
           "/F6 14 0 R\r/F7 15 0 R\r/F8 16 0 R\r/F9 17 0 R\r/F10 18 0 R\r/F11 19 0 R\r/F12 20 0 R\r/F13 21 0 R\r"
           "/F14 22 0 R\r>>\r>>\r");
    object("<</Type/Catalog\r/Pages 2 0 R\r>>\r");
    for (const char* const name : {"Courier-Bold", "Courier-BoldOblique", "Courier-Oblique", "Helvetica",
                                   "Helvetica-Bold", "Helvetica-BoldOblique", "Helvetica-Oblique", "Times-Roman",
                                   "Times-Bold", "Times-Italic", "Times-BoldItalic", "Symbol", "ZapfDingbats"}) {
        font(name);
    }
    EXPECT_EQ(offsets.size(), 22U);
    EXPECT_EQ(offsets.front(), 9U);
    const std::string table = std::to_string(file.size());
    file += "xref\r0 23\r0000000000 65535 f \r";
    for (const std::size_t offset : offsets) {
        std::array<char, 32> entry{};
        EXPECT_EQ(std::snprintf(entry.data(), entry.size(), "%010zu 00000 n \r", offset), 20);
        file += entry.data();
    }
    return file + "trailer\r<</Size 23\r/Root 9 0 R\r/Info 6 0 R\r>>\rstartxref\r" + table + "\r%%EOF\r";
}

std::string InFourBytes(std::uint32_t value)
{
    return {static_cast<char>(value), static_cast<char>(value >> 8U), static_cast<char>(value >> 16U),
            static_cast<char>(value >> 24U)};
}

/// Adler-32 from 0, by its definition.
std::uint32_t ChecksumFromZero(std::string_view text)
{
    std::uint32_t a = 0, b = 0;
    for (const char c : text) {
        a = (a + static_cast<unsigned char>(c)) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16U | a;
}

/// The stream data in front of "endstream": zlib's, checksum, length, CR.
void ExpectStreamData(std::string_view data, const std::string& content)
{
    const Inflated inflated = Inflate(data);
    EXPECT_TRUE(inflated.text == content);
    EXPECT_EQ(data.substr(0, 2), "\x78\xDA") << "a zlib stream at the highest level";
    EXPECT_EQ(data.substr(inflated.used), InFourBytes(ChecksumFromZero(content)) +
                                              InFourBytes(static_cast<std::uint32_t>(content.size())) + "\r");
}

TEST_F(PdfFile, HasItsLayoutToTheByte)
{
    for (const int lines : {0, 1, 5000}) {
        Begin(612, 1008);
        for (int i = 0; i < lines; ++i) {
            pdf.LineTo(i, i * .37);
        }
        const std::string content(pdf.Stream());
        const std::string file = Close();
        const std::string_view data = StreamDataOf(file);
        EXPECT_TRUE(file == WholeFile(data, "612", "1008")) << file;
        ExpectStreamData(data, content);
        EXPECT_EQ(pdf.Stream(), content) << "closing leaves the page as drawn";
    }
    EXPECT_TRUE(platform.fileErrors.empty());
}

TEST_F(PdfFile, CompressesPiecesOfAnyLengthIntoOneStream)
{
    for (const std::size_t size : {0U, 49999U, 50000U, 50001U, 100000U, 100001U}) {
        SCOPED_TRACE(size);
        Begin();
        FillTo(size);
        ExpectStreamData(StreamDataOf(Close()), std::string(pdf.Stream()));
    }
    // Text that hardly compresses, so that a piece gives more than a round of output.
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> anywhere(-10000, 10000);
    Begin();
    for (int i = 0; i < 20000; ++i) {
        pdf.MoveTo(anywhere(random), anywhere(random));
    }
    std::size_t yields = 0;
    platform.onYield = [&] { ++yields; };
    ExpectStreamData(StreamDataOf(Close()), std::string(pdf.Stream()));
    EXPECT_GE(yields, pdf.Stream().size() / 50000) << "the interface gets its turn after each piece";
}

TEST_F(PdfFile, DateHasItsZoneInWholeHours)
{
    constexpr int hour = 3600;
    const std::vector<std::pair<double, std::string>> zones = {
        {0, "Z00"}, {1, "+01"}, {-11, "-11"}, {5.5, "+06"}, {4.5, "+04"}, {-3.5, "-04"}, {-2.5, "-02"}};
    for (const auto& [hours, zone] : zones) {
        platform.clock->secondsEastOfGmt = static_cast<int>(hours * hour);
        EXPECT_EQ(PdfDate(platform.Now()), "(D:20240131174501" + zone + "'00')") << hours;
    }
    EXPECT_EQ(PdfDate({987, 2, 3, 4, 5, 6, 0}), "(D:09870203040506Z00'00')");
}

TEST_F(PdfFile, OperatorsThatNoPaperUses)
{
    Begin(595, 842);
    pdf.SetDash(0, 0, 5);
    pdf.SetDash(3, 0, 5);
    pdf.SetDash(0, 2, 1);
    pdf.SetBackgroundColor(1, 1, 1);
    EXPECT_EQ(pdf.Stream(), "[ ] 0 d\r[3 0] 5 d\r[0 2] 1 d\r");
    pdf.CreateNew();
    pdf.SetBackgroundColor(1, 1, 254 / 255.0);
    EXPECT_EQ(pdf.Stream(),
              "1.00 1.00 1.00 RG\r1.00 1.00 1.00 rg\r0 0 m\r595 0 l\r595 842 l\r0 842 l\r0 0 l\r f\r");
}

TEST_F(PdfFile, FailedOpenTellsOnceAndTheNextNameWorks)
{
    fs::create_directory(folder / "taken.pdf");
    for (const char* const name : {"taken.pdf", "missing/taken.pdf"}) {
        platform.fileErrors.clear();
        pdf.OpenFilename(FolderItem(folder / name));
        Begin();
        pdf.CloseFile(platform);
        ASSERT_EQ(platform.fileErrors.size(), 1U);
        EXPECT_EQ(
            platform.fileErrors[0].text,
            "Unable to open the file taken.pdf, perhaps it is already open for display in another program? Hold "
            "down the shift key when clicking the Generate button again to change the filename.");
        EXPECT_EQ(folder.Names(), Names{"taken.pdf"});
    }
    pdf.OpenFilename(page);
    Close();
    EXPECT_EQ(platform.fileErrors.size(), 1U);
    EXPECT_EQ(Complaints(page.Path()), "");
}

TEST_F(PdfFile, StoppedWhileItIsWrittenLeavesTheOldFile)
{
    WriteFile(page.Path(), "old");
    int stopped = 0;
    for (int yieldsBefore = 0; yieldsBefore < Turns::linesPerYield; ++yieldsBefore) {
        platform.onYield = nullptr;
        turns.RuntimeBackgroundTask(Turns::linesPerYield);  // from here the yields are counted anew
        turns.RuntimeBackgroundTask(yieldsBefore);
        platform.onYield = [] { throw PageStopped(); };
        Begin();
        try {
            pdf.CloseFile(platform);
            WriteFile(page.Path(), "old");
        } catch (const PageStopped&) {
            ++stopped;
            pdf.Discard();
            EXPECT_EQ(ReadFile(page.Path()), "old");
            EXPECT_EQ(folder.Names(), Names{"page.pdf"});
        }
    }
    EXPECT_GT(stopped, 22);
}

class PageFile : public GridTest {};

TEST_F(PageFile, StoppedWhileItIsDrawnLeavesTheOldFile)
{
    WriteFile(page.Path(), "old");
    form.SetText("EditHorzSpacing", ".01");
    int yields = 0;
    for (int last = 1; last < 5; ++last) {
        yields = 0;
        platform.onYield = [&] {
            if (++yields == last) {
                throw PageStopped();
            }
        };
        window->PushButtonGenerate_Action();
        ASSERT_EQ(yields, last);
        EXPECT_EQ(ReadFile(page.Path()), "old");
        EXPECT_EQ(folder.Names(), Names{"page.pdf"});
    }
    platform.onYield = nullptr;
    Generate();
    EXPECT_TRUE(platform.fileErrors.empty());
    EXPECT_EQ(Complaints(page.Path()), "");
}

TEST_F(PageFile, IsReadByOthers)
{
    form.SetColor("BackgroundColorCanvas", {200, 220, 255});
    form.SetListIndex("PopupOrientation", 1);
    Generate();
    EXPECT_EQ(Complaints(page.Path()), "");
    const Finished info = Execute({"env", "TZ=UTC", "pdfinfo", page.Path()});
    EXPECT_EQ(info.errors, "");
    for (const char* const line : {"Width: 792  Height: 612\n", "31 16:45:01 2024", "792 x 612 pts (letter)\n"}) {
        EXPECT_NE(info.output.find(line), std::string::npos) << line << info.output;
    }
    EXPECT_EQ(Execute({"pdftoppm", "-r", "36", page.Path()}).output.substr(0, 11), "P6\n396 306\n");
}

}  // namespace
}  // namespace linealis::test
