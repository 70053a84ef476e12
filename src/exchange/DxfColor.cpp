#include "exchange/DxfColor.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace linealis {

namespace {

constexpr std::size_t paletteSize = 256;

/// Returns the color of a hue from 0 to 24, each a 24th of the circle from red over green and blue. `least` is the
/// channel that the hue lacks, from 0 to 1.
PageColor ColorOfHue(int hue, double least, double brightness)
{
    // The share of a channel falls from 1 to 0 between a sixth and a third of the circle from its own hue.
    const auto channel = [&](int own) {
        constexpr int circle = 24;
        const int away = std::min((hue - own + circle) % circle, (own - hue + circle) % circle);
        const double share = std::clamp(2.0 - away / 4.0, 0.0, 1.0);
        return (least + (1.0 - least) * share) * brightness;
    };
    return {channel(0), channel(8), channel(16)};
}

/// Returns the colors of the index: nine plain ones, 24 hues in five shades, each also half pale, and grays.
std::array<PageColor, paletteSize> Palette()
{
    constexpr std::array shades = {1.0, 0.65, 0.5, 0.3, 0.15};
    constexpr std::array grays = {51, 91, 132, 173, 214, 255};
    constexpr double highest = 255.0, medium = 128.0 / highest, light = 192.0 / highest;
    constexpr std::size_t firstHue = 10, colorsOfHue = 10, firstGray = 250;
    std::array<PageColor, paletteSize> colors = {{{0, 0, 0},
                                                  {1, 0, 0},
                                                  {1, 1, 0},
                                                  {0, 1, 0},
                                                  {0, 1, 1},
                                                  {0, 0, 1},
                                                  {1, 0, 1},
                                                  {0, 0, 0},
                                                  {medium, medium, medium},
                                                  {light, light, light}}};
    for (std::size_t i = firstHue; i < firstGray; ++i) {
        const int hue = static_cast<int>((i - firstHue) / colorsOfHue);
        const std::size_t shade = i % colorsOfHue;
        colors.at(i) = ColorOfHue(hue, shade % 2 == 0 ? 0.0 : 0.5, shades.at(shade / 2));
    }
    for (std::size_t i = 0; i < grays.size(); ++i) {
        const double gray = grays.at(i) / highest;
        colors.at(firstGray + i) = {gray, gray, gray};
    }
    return colors;
}

}  // namespace

int DxfColor(const PageColor& color)
{
    static const std::array<PageColor, paletteSize> palette = Palette();
    const auto distance = [&](const PageColor& other) {
        return std::pow(color.red - other.red, 2) + std::pow(color.green - other.green, 2) +
               std::pow(color.blue - other.blue, 2);
    };
    // Entry 0 is no color. The plain ones come first, so they are preferred to their likes.
    const auto* const nearest =
        std::min_element(palette.begin() + 1, palette.end(),
                         [&](const PageColor& a, const PageColor& b) { return distance(a) < distance(b); });
    return static_cast<int>(nearest - palette.begin());
}

}  // namespace linealis
