#include "graph/DataRange.h"

#include "graph/LinearFit.h"
#include "pdf/Units.h"
#include "pipeline/page/PageWords.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace linealis {

namespace {

constexpr double largestValue = 1e15;  // of an axis

/// Decades of a round length must take up this part of the room.
constexpr double leastUseOfDecades = 0.8;

std::string_view NameOf(AxisName axis)
{
    return axis == AxisName::x ? "X" : "Y";
}

/// Returns a length in the unit of the form: "2 mm", "0.1 in".
Message LengthOf(double points, const AxisRoom& room)
{
    return room.IsInInches() ? Message("%1 in", std::round(points / pointsPerInch * 1e4) / 1e4)
                             : Message("%1 mm", std::round(points / pointsPerMm * 1e2) / 1e2);
}

/// Returns an end of a range as it was given, with more than 7 digits if necessary.
Message Given(double value)
{
    std::string text = Str(value);
    if (Val(text) != value) {
        text = myformatstring(value, "0.000000000");
        text.erase(text.find_last_not_of('0') + 1);
    }
    return Message::Number(text);
}

/// Returns the text of a density that is not above it, with 7 digits.
std::string DensityUpTo(double density)
{
    const std::string nearest = Str(density);
    return Val(nearest) <= density ? nearest : Str(density - std::pow(10.0, std::floor(std::log10(density)) - 6.0));
}

/// Returns the density with which the page makes the graph `length` points long, less a fraction of a point; empty
/// if there is none. The graph is a whole number of spacings, here of one decade, of `unit`, or of the whole
/// length.
std::string DensityOfLength(double length, double decade, double unit, const AxisRoom& room)
{
    for (const double apart : {decade, unit, length}) {
        std::string density = DensityUpTo(room.unitPixels / apart);
        const double spacing = (1.0 / Val(density)) * room.unitPixels;
        const auto lines = static_cast<double>(truncated(room.length / spacing));
        if (truncated(lines * spacing) == truncated(length + 1e-6)) {
            return density;
        }
    }
    return {};
}

AxisFit FitDecades(int firstExponent, int decades, const AxisRoom& room)
{
    AxisFit fit;
    fit.type = static_cast<AxisType>(decades);
    fit.first = std::pow(10.0, firstExponent);
    fit.last = std::pow(10.0, firstExponent + decades);
    // Decades of a whole number of these.
    const double unit = room.IsInInches() ? pointsPerInch / 4.0 : pointsPerCm / 2.0;
    const auto count = static_cast<double>(decades);
    for (double units = std::floor(room.length / count / unit + ofAStep);
         units * unit * count >= leastUseOfDecades * room.length && units > 0.0; units -= 1.0) {
        fit.spacing = units * unit;
        fit.density = DensityOfLength(count * fit.spacing, fit.spacing, unit, room);
        if (!fit.density.empty()) {
            return fit;
        }
    }
    fit.spacing = room.length / count;
    fit.density = Str(1.0 / (room.length / room.unitPixels) * 1.00001);
    return fit;
}

AxisFitOrProblem FitLog(const DataRange& range, const Message& words, const AxisRoom& room)
{
    if (range.minimum <= 0.0) {
        return RangeProblem{Message("%1 cannot be logarithmic: its minimum must be above 0", words)};
    }
    const int first = static_cast<int>(truncated(std::floor(std::log10(range.minimum) + ofAStep)));
    const int last = static_cast<int>(truncated(std::ceil(std::log10(range.maximum) - ofAStep)));
    const int decades = std::max(last - first, 1);
    if (decades > logFiveDecades) {
        return RangeProblem{Message("%1 needs %2 decades, from %3 to %4; a logarithmic axis has 1 to 5", words,
                                    decades, std::pow(10.0, first), std::pow(10.0, last))};
    }
    return FitDecades(first, decades, room);
}

/// The part of the axis that a range below 0 must take up if the axis is extended to 0.
constexpr double leastUseBelowZero = 0.25;

AxisFitOrProblem FitLinear(DataRange range, const Message& words, Fineness fineness, const AxisRoom& room)
{
    const double largest = std::max(std::abs(range.minimum), std::abs(range.maximum));
    const double lastDigit = std::floor(std::log10(largest)) + 1.0 - digitsOfNumber;
    const double narrowest = 10.0 * std::pow(10.0, std::clamp(lastDigit, 0.0 - mostDecimals, 0.0));
    if (range.maximum - range.minimum < narrowest * (1.0 - 1e-6)) {
        return RangeProblem{
            Message("%1 is too narrow: numbers on a page have up to 7 digits, so it must be at least %2 wide",
                    words, narrowest)};
    }
    if (range.maximum < 0.0 && room.showsAxes) {  // the page draws the other axis at 0, even beyond the edge
        const double highest = range.minimum * (1.0 - leastUseBelowZero);
        if (range.maximum < highest) {
            return RangeProblem{Message(
                "%1 is too far below 0, where the page draws the axis lines; its maximum must be at least %2, or "
                "Show Axes must be off",
                words, highest)};
        }
        range.maximum = 0.0;
    }
    if (auto fit = FitLines(range, fineness, room)) {
        return *std::move(fit);
    }
    return RangeProblem{Message(
        "%1 has no room in %2 between the margins; possible with larger paper or smaller margins or numbers", words,
        LengthOf(room.length, room))};
}

}  // namespace

AxisFitOrProblem FitAxis(const DataRange& range, Fineness fineness, const AxisRoom& room)
{
    const Message words =
        Message("the %1 range %2 to %3", NameOf(room.name), Given(range.minimum), Given(range.maximum));
    if (!(range.minimum < range.maximum)) {
        return RangeProblem{Message("%1 is empty: its minimum must be below its maximum", words)};
    }
    if (range.minimum < -largestValue || range.maximum > largestValue) {
        return RangeProblem{
            Message("%1 is too large: values can be from %2 to %3", words, -largestValue, largestValue)};
    }
    constexpr double leastRoom = 10.0;  // millimeters
    if (!(room.length >= leastRoom * pointsPerMm)) {
        return RangeProblem{Message("the margins leave %1 for the %2 axis; a range needs at least %3",
                                    LengthOf(std::max(room.length, 0.0), room), NameOf(room.name),
                                    LengthOf(leastRoom * pointsPerMm, room))};
    }
    return range.isLog ? FitLog(range, words, room) : FitLinear(range, words, fineness, room);
}

AxisRoom RoomOf(const GraphForm& form, AxisName axis)
{
    const PageSetup setup = form.ReadSetup();
    const bool isX = axis == AxisName::x;
    const AxisRow& row = isX ? form.xAxis : form.yAxis;
    return {axis,
            isX ? setup.UsableWidth() : setup.UsableHeight(),
            setup.unitPixels,
            row.textSize.Used(),
            isX && row.numberType.ListIndex() == 1,
            form.CheckBoxShowAxes.Value()};
}

void EnterFit(const AxisFit& fit, const AxisFields& fields)
{
    if (fields.grid.type.ListIndex() != fit.type) {
        fields.grid.type.SetListIndex(fit.type);
    }
    fields.grid.lineSpacing.SetText(fit.density);
    fields.axis.minimum.SetText(mystring(fit.first));
    fields.axis.maximum.SetText(mystring(fit.last));
    if (fit.type == linear) {
        fields.axis.step.SetText(mystring(fit.step));
        fields.grid.major.SetText(mystring(fit.majorLines));
        fields.axis.spacing.SetText(mystring(fit.numberLines));
    }
}

Message WordsOf(const AxisFit& fit, const AxisRoom& room)
{
    if (fit.type != linear) {
        return Message("%1 axis: %2 of %3, %4 to %5", NameOf(room.name), DecadeWords(fit.type),
                       LengthOf(fit.spacing, room), fit.first, fit.last);
    }
    return Message("%1 axis: %2 to %3, a line every %4 (%5), a number every %6", NameOf(room.name), fit.first,
                   fit.last, fit.step, LengthOf(fit.spacing, room), fit.step * fit.numberLines);
}

}  // namespace linealis
