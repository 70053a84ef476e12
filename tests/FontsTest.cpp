#include "TestSupport.h"
#include "exchange/FontFaces.h"
#include "exchange/SvgPage.h"
#include "pdf/StandardFonts.h"

namespace linealis::test {
namespace {

TEST(Fonts, WhatStandsInOrIsMissingIsSaidOnce)
{
    const TemporaryFolder folder;
    WriteFile(folder / "t.csv", "page-title\nA\nB\n");
    const std::string texts = "linealis-cli: warning: Texts in Times Bold are ", hint = " (try fonts-urw-base35)\n";
    for (const auto& [fonts, said] : std::vector<std::pair<std::string, std::string>>{
             {"/usr/share/fonts/opentype/urw-base35", ""},
             {"/usr/share/fonts/truetype/dejavu", "shown in DejaVu Serif, which has other widths"},
             {"/nowhere", "not shown: no font is installed"}}) {
        WriteFile(folder / "fonts.conf",
                  "<fontconfig><dir>" + fonts + "</dir><cachedir>cache</cachedir></fontconfig>");
        const Finished call = RunInShell(
            folder, "export FONTCONFIG_FILE=$PWD/fonts.conf; $cli generate graph --set show-axes=off --set "
                    "'font=Times Bold' --table t.csv --output-dir . --format png --dpi 20");
        EXPECT_EQ(call.status, 0);
        EXPECT_EQ(call.errors, said.empty() ? "" : texts + said + hint);
    }
}

/// Against the installed faces, which are made to match.
TEST(Fonts, SvgTextsHaveTheWidthThatReadersShow)
{
    std::u32string characters = U"\u00C4\u00E9\u00FC\u00DF\u2022\u2019\u2014";
    std::string bytes = "\x80\x8E\x9F\xA7\xA5\xD5\xD1";
    for (char character = ' '; character <= '~'; ++character) {
        characters += static_cast<char32_t>(character);
        bytes += std::string(character == '(' || character == ')' || character == '\\' ? "\\" : "") + character;
    }
    FontFaces faces;
    for (int font = 1; font <= 12; ++font) {
        const FT_Face face = faces.FaceOf(font);
        ASSERT_NE(face, nullptr);
        double width = 0.0;
        for (const char32_t character : characters) {
            ASSERT_EQ(FT_Load_Char(face, character, FT_LOAD_NO_SCALE), FT_Err_Ok);
            width += 20.0 * static_cast<double>(face->glyph->metrics.horiAdvance) / face->units_per_EM;
        }
        std::string svg;
        BinaryStream stream = BinaryStream::IntoMemory(svg);
        WriteSvg({100, 100}, "BT\r/F" + std::to_string(font) + " 20 Tf\r(" + bytes + ") Tj\rET\r", {}, "", stream);
        const std::string name = " textLength=\"";
        ASSERT_NE(svg.find(name), std::string::npos);
        EXPECT_NEAR(std::stod(svg.substr(svg.find(name) + name.size())), width, 0.1) << StandardFontOf(font).title;
    }
}

}  // namespace
}  // namespace linealis::test
