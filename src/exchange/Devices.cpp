#include "exchange/Devices.h"

#include "pdf/Units.h"
#include "text/LetterCase.h"
#include "text/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace linealis {

namespace {

constexpr int grays16 = 16, allColors = 0;
constexpr std::string_view publicTables = "public tables of devices, 2026-11-25";

constexpr auto devices = std::to_array<Device>({
    {"ipad-a16", "iPad 11 (A16)", {1640, 2360, 264.0, allColors}, publicTables},
    {"kobo-elipsa-2e", "Kobo Elipsa 2E", {1404, 1872, 227.0, grays16}, publicTables},
    {"remarkable-2", "reMarkable 2", {1404, 1872, 226.0, grays16}, publicTables},
    {"remarkable-paper-pro", "reMarkable Paper Pro", {1620, 2160, 229.0, allColors}, publicTables},
    {"remarkable-paper-pro-move", "reMarkable Paper Pro Move", {954, 1696, 264.0, allColors}, publicTables},
    {"supernote-manta", "Supernote Manta", {1920, 2560, 300.0, grays16}, publicTables},
    {"supernote-nomad", "Supernote Nomad", {1404, 1872, 300.0, grays16}, publicTables},
});

/// Reads a number that begins the text, and removes it and the sign after it, which must be there unless it is 0.
template <typename Number>
std::optional<Number> Take(std::string_view& text, char sign)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    if (sign == '\0' ? !text.empty() : text.empty() || text.front() != sign) {
        return std::nullopt;
    }
    text.remove_prefix(std::min<std::size_t>(1, text.size()));
    return number;
}

/// Returns the whole points that cover the pixels.
std::int64_t PointsOver(std::int64_t pixels, double dotsPerInch)
{
    constexpr double rounding = 1e-6;  // points: a rounding error must not add a point
    return static_cast<std::int64_t>(
        std::ceil(static_cast<double>(pixels) / dotsPerInch * pointsPerInch - rounding));
}

}  // namespace

std::span<const Device> Devices()
{
    return devices;
}

std::optional<Screen> ScreenNamed(std::string_view text)
{
    const auto* const known = std::find_if(devices.begin(), devices.end(),
                                           [&](const Device& device) { return IsSameText(device.name, text); });
    if (known != devices.end()) {
        return known->screen;
    }
    const auto width = Take<std::int64_t>(text, 'x'), height = width ? Take<std::int64_t>(text, '@') : std::nullopt;
    const auto dotsPerInch = height ? Take<int>(text, '\0') : std::nullopt;
    const auto isSide = [](std::int64_t side) { return side >= 1 && side <= mostScreenSide; };
    if (!dotsPerInch || !isSide(*width) || !isSide(*height) || *dotsPerInch < leastScreenDpi ||
        *dotsPerInch > mostScreenDpi) {
        return std::nullopt;
    }
    return Screen{*width, *height, static_cast<double>(*dotsPerInch), grays16};
}

void LayOut(const Screen& screen, PaperForm& form)
{
    // The form cuts a custom size to whole points, so the length is a little more than that.
    constexpr double more = 0.01;
    const double pointsPerUnit = form.InInches() ? pointsPerInch : pointsPerCmOfCustomSize;
    const auto text = [&](std::int64_t pixels) {
        return Str((static_cast<double>(PointsOver(pixels, screen.dotsPerInch)) + more) / pointsPerUnit);
    };
    form.PopupPaperSize.SetListIndex(static_cast<std::int64_t>(form.PopupPaperSize.Items().size()) - 1);  // Custom
    form.EditCustomWidth.SetText(text(screen.width));
    form.EditCustomHeight.SetText(text(screen.height));
}

Screen Turned(const Screen& screen, const PaperSize& paper)
{
    const bool isAcross = (paper.width > paper.height) != (screen.width > screen.height);
    return isAcross ? Screen{screen.height, screen.width, screen.dotsPerInch, screen.grays} : screen;
}

}  // namespace linealis
