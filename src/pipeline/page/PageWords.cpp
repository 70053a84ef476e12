#include "pipeline/page/PageWords.h"

#include "pdf/Units.h"
#include "pipeline/page/PaperSizes.h"

#include <cmath>

namespace linealis {

namespace {

constexpr double mmPerCm = 10.0;

/// Returns a length in the unit of the form, rounded.
double RoundedLength(double points, const PageSetup& page)
{
    const bool inInches = page.IsInInches();
    const double length = inInches ? points / pointsPerInch : points / pointsPerCm * mmPerCm;
    const double grain = inInches ? 1000.0 : 100.0;
    return std::round(length * grain) / grain;
}

}  // namespace

Message LengthWords(double points, const PageSetup& page)
{
    const double length = RoundedLength(points, page);
    return page.IsInInches() ? Message("%1 in", length) : Message("%1 mm", length);
}

Message SizeWords(double width, double height, const PageSetup& page)
{
    const double across = RoundedLength(width, page);
    const double up = RoundedLength(height, page);
    if (across == up) {
        return LengthWords(width, page);
    }
    return page.IsInInches() ? Message("%1 by %2 in", across, up) : Message("%1 by %2 mm", across, up);
}

Message CountWords(double count, const Noun& noun)
{
    return count >= 1.0 ? Message(noun.some, count, count) : Message(noun.none);
}

Message CountWords(double across, double up, const Noun& noun)
{
    return across >= 1.0 && up >= 1.0 ? Message(noun.some, across * up, across, up) : Message(noun.none);
}

Message PaperWords(const PageSetup& page)
{
    const std::string_view name = NameOfPaper({page.paperWidth, page.paperHeight});
    return name.empty()
               ? SizeWords(static_cast<double>(page.paperWidth), static_cast<double>(page.paperHeight), page)
               : Message::Listed(name);
}

Message OrientationWords(const PageSetup& page)
{
    return page.paperWidth > page.paperHeight ? Message("landscape") : Message("portrait");
}

}  // namespace linealis
