#include "pipeline/page/PageWords.h"

#include "pdf/Units.h"
#include "pipeline/page/PaperSizes.h"
#include "text/Numbers.h"

#include <cmath>

namespace linealis {

namespace {

constexpr double mmPerCm = 10.0;

/// Returns the number of a length without its unit.
std::string LengthNumber(double points, const PageSetup& page)
{
    const bool inInches = page.IsInInches();
    const double length = inInches ? points / pointsPerInch : points / pointsPerCm * mmPerCm;
    const double grain = inInches ? 1000.0 : 100.0;
    return Str(std::round(length * grain) / grain);
}

std::string_view UnitName(const PageSetup& page)
{
    return page.IsInInches() ? " in" : " mm";
}

std::string Plural(std::string_view one, bool isOne)
{
    return std::string(one) + (isOne ? "" : "s");
}

}  // namespace

std::string LengthWords(double points, const PageSetup& page)
{
    return LengthNumber(points, page).append(UnitName(page));
}

std::string SizeWords(double width, double height, const PageSetup& page)
{
    const std::string across = LengthNumber(width, page);
    const std::string up = LengthNumber(height, page);
    std::string words = across == up ? across : across + " by " + up;
    return words.append(UnitName(page));
}

std::string CountWords(double count, std::string_view one)
{
    return (count >= 1.0 ? Str(count) : "no") + " " + Plural(one, count == 1.0);
}

std::string CountWords(double across, double up, std::string_view one)
{
    return across >= 1.0 && up >= 1.0 ? Str(across) + " by " + Str(up) + " " + Plural(one, across * up == 1.0)
                                      : CountWords(0.0, one);
}

std::string PaperWords(const PageSetup& page)
{
    const std::string_view name = NameOfPaper({page.paperWidth, page.paperHeight});
    return name.empty()
               ? SizeWords(static_cast<double>(page.paperWidth), static_cast<double>(page.paperHeight), page)
               : std::string(name);
}

std::string_view OrientationWords(const PageSetup& page)
{
    return page.paperWidth > page.paperHeight ? "landscape" : "portrait";
}

}  // namespace linealis
