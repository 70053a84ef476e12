#include "pdf/StandardFonts.h"

#include <algorithm>
#include <array>

namespace linealis {

namespace {

using Names = std::string_view;

constexpr std::array courierNames = {Names("Courier"), Names("Nimbus Mono PS"), Names("Liberation Mono"),
                                     Names("DejaVu Sans Mono")};
constexpr std::array helveticaNames = {Names("Helvetica"), Names("Nimbus Sans"), Names("Liberation Sans"),
                                       Names("Arial"), Names("DejaVu Sans")};
constexpr std::array timesNames = {Names("Times"), Names("Nimbus Roman"), Names("Liberation Serif"),
                                   Names("Times New Roman"), Names("DejaVu Serif")};
constexpr std::array symbolNames = {Names("Symbol"), Names("Standard Symbols PS")};
constexpr std::array dingbatNames = {Names("Zapf Dingbats"), Names("D050000L")};

constexpr FontFamily courier{courierNames, "monospace", 0.562};
constexpr FontFamily helvetica{helveticaNames, "sans-serif", 0.718};
constexpr FontFamily times{timesNames, "serif", 0.662};
constexpr FontFamily symbol{symbolNames, "", 0.673};
constexpr FontFamily dingbats{dingbatNames, "", 0.692};

constexpr FontWidths OneWidth(std::uint16_t width)
{
    FontWidths widths{};
    widths.fill(width);
    return widths;
}

constexpr FontWidths courierWidths = OneWidth(600);

constexpr std::array<StandardFont, 15> fonts = {{
    {"Courier", "Courier", courier, false, false, &courierWidths},
    {"Courier", "Courier", courier, false, false, &courierWidths},
    {"Courier-Bold", "Courier Bold", courier, true, false, &courierWidths},
    {"Courier-BoldOblique", "Courier Bold Oblique", courier, true, true, &courierWidths},
    {"Courier-Oblique", "Courier Oblique", courier, false, true, &courierWidths},
    {"Helvetica", "Helvetica", helvetica, false, false, &helveticaWidths},
    {"Helvetica-Bold", "Helvetica Bold", helvetica, true, false, &helveticaBoldWidths},
    {"Helvetica-BoldOblique", "Helvetica Bold Oblique", helvetica, true, true, &helveticaBoldWidths},
    {"Helvetica-Oblique", "Helvetica Oblique", helvetica, false, true, &helveticaWidths},
    {"Times-Roman", "Times Roman", times, false, false, &timesWidths},
    {"Times-Bold", "Times Bold", times, true, false, &timesBoldWidths},
    {"Times-Italic", "Times Italic", times, false, true, &timesItalicWidths},
    {"Times-BoldItalic", "Times Bold Italic", times, true, true, &timesBoldItalicWidths},
    {"Symbol", "Symbol", symbol},
    {"ZapfDingbats", "Zapf Dingbats", dingbats},
}};

}  // namespace

std::span<const StandardFont, 15> StandardFonts()
{
    return fonts;
}

const StandardFont& StandardFontOf(int number)
{
    return fonts.at(static_cast<std::size_t>(std::clamp(number, 0, static_cast<int>(fonts.size()) - 1)));
}

double ShownWidth(const StandardFont& font, std::string_view macRoman)
{
    constexpr unsigned char first = 0x20;
    constexpr double unitsPerSize = 1000.0;
    int sum = 0;
    for (const char byte : macRoman) {
        const auto character = static_cast<unsigned char>(byte);
        const int width = font.widths != nullptr && character >= first ? font.widths->at(character - first) : 0;
        if (width == 0) {
            return 0.0;
        }
        sum += width;
    }
    return sum / unitsPerSize;
}

}  // namespace linealis
