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

constexpr FontFamily courier{courierNames, "monospace"};
constexpr FontFamily helvetica{helveticaNames, "sans-serif"};
constexpr FontFamily times{timesNames, "serif"};
constexpr FontFamily symbol{symbolNames, ""};
constexpr FontFamily dingbats{dingbatNames, ""};

/// F0 and F1 are the same.
constexpr std::array<StandardFont, 15> fonts = {{{courier},
                                                 {courier},
                                                 {courier, true},
                                                 {courier, true, true},
                                                 {courier, false, true},
                                                 {helvetica},
                                                 {helvetica, true},
                                                 {helvetica, true, true},
                                                 {helvetica, false, true},
                                                 {times},
                                                 {times, true},
                                                 {times, false, true},
                                                 {times, true, true},
                                                 {symbol},
                                                 {dingbats}}};

}  // namespace

const StandardFont& StandardFontOf(int number)
{
    return fonts.at(static_cast<std::size_t>(std::clamp(number, 0, static_cast<int>(fonts.size()) - 1)));
}

}  // namespace linealis
