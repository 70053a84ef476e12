#include "TestSupport.h"
#include "pdf/MyPDFGenerator.h"
#include "text/MacRoman.h"

#include <cmath>

namespace linealis::test {
namespace {

class Operators : public testing::Test {
protected:
    Operators() { pdf.CreateNew(); }

    /// The operators since the last call.
    Names Drawn()
    {
        const std::string_view stream = pdf.Stream();
        const std::string_view fresh = stream.substr(std::exchange(seen, stream.size()));
        EXPECT_TRUE(fresh.empty() || fresh.ends_with('\r'));
        return Lines(fresh);
    }

    ScreenlessPlatform platform;
    Turns turns{[this] { platform.Yield(); }};
    MyPDFGenerator pdf{turns};

private:
    std::size_t seen = 0;
};

TEST_F(Operators, NumbersHaveTheirForms)
{
    pdf.SetLineWidth(0.0);
    pdf.MoveTo(-0.0, 0.1 + 0.2);
    pdf.LineTo(1234567.891, -100.0 / 3.0);
    pdf.SetLineCap(1.0);
    pdf.SetRGBColor(0.125, -0.5, 255.0);
    pdf.SetRGBColor(Color{128, 1, 255});
    pdf.Scale(1.0, -1.234567);
    EXPECT_EQ(Drawn(),
              (Names{"0 w", "0 0.3 m", "1234568 -33.33333 l", "1 J", "0.12 -0.50 255.00 RG", "0.12 -0.50 255.00 rg",
                     "0.50 0.00 1.00 RG", "0.50 0.00 1.00 rg", "1.00000 0 0 -1.23457  0 0 cm"}));
}

TEST_F(Operators, TextIsABlockOfItsOwn)
{
    pdf.SetFont(3, 9.9);
    pdf.SetTextPos(72.5, -1.25);
    EXPECT_EQ(Drawn(), Names{}) << "both only store";
    pdf.CreateNew();
    pdf.Show("a (b\\");
    EXPECT_EQ(Drawn(), (Names{"BT", "/F3 9 Tf", "72.5 -1.25 Td", "(a (b\\) Tj", "ET"})) << "nothing is escaped";
    pdf.ShowFont("x", 14);
    pdf.Show("");
    EXPECT_EQ(Drawn(), (Names{"BT", "/F14 9 Tf", "72.5 -1.25 Td", "(x) Tj", "ET",  //
                              "BT", "/F3 9 Tf", "72.5 -1.25 Td", "() Tj", "ET"}));
    EXPECT_EQ(pdf.FindFont("Helvetica-Bold", "host", 0), 0) << "of whatever name";
}

TEST_F(Operators, WidthCountsCharacters)
{
    EXPECT_EQ(MyPDFGenerator::StringWidth("0123456789", 4, 12), 72.0);
    EXPECT_EQ(MyPDFGenerator::StringWidth("iiiiiiiiii", 9, 12), 72.0);
    EXPECT_EQ(MyPDFGenerator::StringWidth("", 4, 12), 0.0);
    EXPECT_EQ(MyPDFGenerator::StringWidth("Größe €", 1, 10), 42.0);
    EXPECT_EQ(MyPDFGenerator::StringWidth("a\xFFz\xC3", 1, 10), 24.0) << "a stray byte is a character";
}

TEST_F(Operators, TextOnACircle)
{
    // A character is 6 points wide, 0.1 radian of this circle.
    pdf.DrawRotatedTextFont("Aé", 100.0, 200.0, 60.0, 90.0, 10, 5);
    EXPECT_EQ(Drawn(),
              (Names{"BT", "/F5 10 Tf", "-00000.09983344 00000.99500416 -00000.99500416 -00000.09983344 100 200 Tm",
                     "0 60 Td", "(A) Tj", "ET",  //
                     "BT", "/F5 10 Tf", "-00000.00000002 00001.00000000 -00001.00000000 -00000.00000002 100 200 Tm",
                     "0 60 Td", "(\x8E) Tj", "ET"}));
    pdf.DrawRotatedText("x", 0.0, 0.0, 60.0, 0.0, 20);
    EXPECT_EQ(Drawn(),  // half a character of 12 points to the left: again 0.1 radian
              (Names{"BT", "/F0 20 Tf", "00000.99500417 00000.09983342 -00000.09983342 00000.99500417 0 0 Tm",
                     "0 60 Td", "(x) Tj", "ET"}));
    pdf.DrawRotatedTextFont("", 100.0, 200.0, 60.0, 90.0, 10, 5);
    EXPECT_EQ(Drawn(), Names{});
}

TEST_F(Operators, AnOpenTextObjectIsOpenedAndClosedOnce)
{
    pdf.SetFont(2, 11.0);
    pdf.HandleOutTextMode();
    pdf.HandleInTextMode();
    pdf.HandleInTextMode();
    EXPECT_EQ(Drawn(), (Names{"BT", "/F2 11 Tf"}));
    pdf.HandleOutTextMode();
    pdf.HandleOutTextMode();
    EXPECT_EQ(Drawn(), (Names{"ET"}));
}

class Clipping : public Operators {
protected:
    /// What is left of the line in the rectangle from (10, 20) to (110, 70).
    Names Clipped(double x1, double y1, double x2, double y2)
    {
        pdf.ClipLine(x1, y1, x2, y2, 10.0, 20.0, 100.0, 50.0);
        return Drawn();
    }
};

TEST_F(Clipping, LinesInsideStayAsTheyAre)
{
    EXPECT_EQ(Clipped(20, 30, 100, 60.5), (Names{"20 30 m", "100 60.5 l", "S"}));
    EXPECT_EQ(Clipped(100, 60.5, 20, 30), (Names{"100 60.5 m", "20 30 l", "S"}));
    EXPECT_EQ(Clipped(10, 20, 110, 20), (Names{"10 20 m", "110 20 l", "S"})) << "along the bottom edge";
    EXPECT_EQ(Clipped(110, 70, 110, 20), (Names{"110 70 m", "110 20 l", "S"})) << "along the right edge";
    EXPECT_EQ(Clipped(50, 50, 50, 50), (Names{"50 50 m", "50 50 l", "S"}));
}

TEST_F(Clipping, LinesOutsideLeaveNothing)
{
    EXPECT_EQ(Clipped(0, 30, 9, 60), Names{});
    EXPECT_EQ(Clipped(111, 0, 120, 100), Names{}) << "from the lower to the upper right";
    EXPECT_EQ(Clipped(0, 71, 200, 90), Names{});
    EXPECT_EQ(Clipped(60, 19, 60, 0), Names{});
    EXPECT_EQ(Clipped(5, 5, 5, 5), Names{});
    EXPECT_EQ(Clipped(0, 60, 20, 90), Names{}) << "past the upper left corner";
    EXPECT_EQ(Clipped(100, 0, 140, 40), Names{}) << "past the lower right corner";
}

TEST_F(Clipping, LinesThroughAnEdgeAreCutAtIt)
{
    EXPECT_EQ(Clipped(60, 45, 160, 145), (Names{"60 45 m", "85 70 l", "S"})) << "the inner end stays";
    EXPECT_EQ(Clipped(160, 145, 60, 45), (Names{"85 70 m", "60 45 l", "S"}));
    EXPECT_EQ(Clipped(60, 45, 360, 145), (Names{"60 45 m", "110 61.66667 l", "S"})) << "cut twice";
    EXPECT_EQ(Clipped(0, 45, 200, 45), (Names{"10 45 m", "110 45 l", "S"}));
    EXPECT_EQ(Clipped(40, 80, 40, 0), (Names{"40 70 m", "40 20 l", "S"}));
    EXPECT_EQ(Clipped(-40, -30, 160, 120), (Names{"26.66667 20 m", "93.33333 70 l", "S"}))
        << "through both corners' regions";
    EXPECT_EQ(Clipped(0, 50, 20, 90), (Names{"10 70 m", "10 70 l", "S"})) << "through the corner itself";
}

TEST_F(Clipping, EndsThatRoundingThrowsAboutAreInTheCorner)
{
    pdf.ClipLine(0.8, 0.8, 0, 0, 0.2, 0.2, 0.6, 0.9);
    EXPECT_EQ(Drawn(), (Names{"0.8 0.8 m", "0.2 0.2 l", "S"}));
    pdf.ClipLine(0, 0, 2, 2, 0.2, 0.2, 0.6, 0.9);
    EXPECT_EQ(Drawn(), (Names{"0.2 0.2 m", "0.8 0.8 l", "S"})) << "the other end is cut as ever";
    pdf.ClipLine(1628.0587662198989, 1406.9511656287448, -668.26832070767648, -581.72642704885243,
                 53.858268299999999, 43.65354378, 1096.72440807, 724.25196777000008);
    EXPECT_EQ(Drawn(), (Names{"890.1524 767.9055 m", "53.85827 43.65354 l", "S"})) << "across a page";
    for (const double end : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_LE(Clipped(end, end, 60, 50).size(), 3) << "ends, whatever it draws";
    }
}

TEST_F(Clipping, EachCallHasItsOwnRectangle)
{
    Clipped(0, 45, 200, 45);
    pdf.ClipLine(0, 45, 200, 45, 0.0, 0.0, 50.0, 50.0);
    EXPECT_EQ(Drawn(), (Names{"0 45 m", "50 45 l", "S"}));
    std::vector<int> regions;
    for (const double y : {51.0, 50.0, -0.5}) {
        for (const double x : {-1.0, 0.0, 50.5}) {
            regions.push_back(pdf.FindRegion(x, y));
        }
    }
    EXPECT_EQ(regions, (std::vector{9, 1, 5, 8, 0, 4, 10, 2, 6}));
}

TEST(MacRoman, EveryCodeHasItsCharacter)
{
    EXPECT_EQ(ToMacRoman("\t !()\\AZaz~\x7F"), "\t !()\\AZaz~\x7F");
    // Mac OS's characters from 128 on. PDF lacks the mathematical ones among them and the apple.
    const std::string upper =
        "ÄÅÇÉÑÖÜáàâäãåçéèêëíìîïñóòôöõúùûü†°¢£§•¶ß®©™´¨≠ÆØ∞±≤≥¥µ∂∑∏π∫ªºΩæø¿¡¬√ƒ≈∆«»…\u00A0ÀÃÕŒœ–—“”‘’÷◊ÿŸ⁄¤‹›ﬁﬂ"
        "‡·‚„‰ÂÊÁËÈÍÎÏÌÓÔ\uF8FFÒÚÛÙıˆ˜¯˘˙˚¸˝˛ˇ";
    const std::vector<int> lacking = {0xAD, 0xB0, 0xB2, 0xB3, 0xB6, 0xB7, 0xB8, 0xB9,
                                      0xBA, 0xBD, 0xC3, 0xC5, 0xC6, 0xD7, 0xF0};
    const std::string encoded = ToMacRoman(upper);
    ASSERT_EQ(encoded.size(), 128U);
    for (int code = 128; code < 256; ++code) {
        const bool lacks = std::find(lacking.begin(), lacking.end(), code) != lacking.end();
        EXPECT_EQ(encoded[static_cast<std::size_t>(code) - 128], lacks ? '?' : static_cast<char>(code)) << code;
    }
}

TEST(MacRoman, WhatItLacksIsAQuestionMark)
{
    EXPECT_EQ(ToMacRoman("Größe 5 €, 日本 𝄞"), "Gr\x9A\247e 5 ?, ?? ?");
    for (const char* const bytes : {"\xFF", "\x80", "\xC3", "\xE2\x82", "\xF0\x9D\x84"}) {
        const std::string text = std::string("a") + bytes;
        EXPECT_EQ(ToMacRoman(text).substr(0, 2), "a?") << "no character, or one that is cut off";
        EXPECT_EQ(ToMacRoman(text + "z").back(), 'z');
        EXPECT_EQ(CharacterCount(text), Characters(text).size());
        EXPECT_EQ(CharacterCount(text), ToMacRoman(text).size());
    }
    EXPECT_EQ(ToMacRoman("\xC0\xA8").find('('), std::string::npos) << "no second way to write a parenthesis";
}

}  // namespace
}  // namespace linealis::test
