#include "graph/DataRange.h"

#include "graph/AxisFunctions.h"
#include "pipeline/page/PageWords.h"
#include "text/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>

namespace linealis {

namespace {

constexpr double pointsPerMm = pointsPerInch / 25.4;

/// Tolerance for a number of steps, so that 0.3 is 3 steps of 0.1.
constexpr double ofAStep = 1e-9;

/// The limits of axis values. Numbers on a page have at most 7 digits if they are not whole, and 12 decimals.
constexpr double largestValue = 1e15;
constexpr int digitsOfNumber = 7;
constexpr int mostDecimals = 12;

/// The distances between lines for a fineness, in millimeters, and the least number of lines from one
/// major line to the next.
struct Distances {
    double wanted;
    double least;
    double most;
    double leastMajorLines;
    double leastMajorLinesOfFives;  ///< likewise at a step of 5, 50, 0.5, ...
};

constexpr Distances DistancesOf(Fineness fineness)
{
    switch (fineness) {
    case Fineness::coarse:
        return {5.0, 4.0, 10.0, 4.0, 2.0};
    case Fineness::medium:
        return {2.0, 1.6, 4.0, 4.0, 4.0};
    case Fineness::fine:
        break;
    }
    return {1.0, 0.8, 2.0, 8.0, 8.0};
}

// Densities with round distances: 1, 2, 2.5, 4, 5, and 10 mm; 1/20, 1/16, 1/10, 1/8, 1/5, and 1/4 inch.
constexpr std::array roundPerCm = {10.0, 5.0, 4.0, 2.5, 2.0, 1.0};
constexpr std::array roundPerInch = {20.0, 16.0, 10.0, 8.0, 5.0, 4.0};

/// The range must take up this part of the axis for a round distance between lines, and decades of a round length
/// this part of the room.
constexpr double leastUse = 0.7;
constexpr double leastUseOfDecades = 0.8;

bool IsInInches(const AxisRoom& room)
{
    return room.unitPixels == pointsPerInch;
}

std::string NameOf(AxisName axis)
{
    return axis == AxisName::x ? "X" : "Y";
}

/// Returns a length in the unit of the form: "2 mm", "0.1 in".
std::string LengthOf(double points, const AxisRoom& room)
{
    return IsInInches(room) ? Str(std::round(points / pointsPerInch * 1e4) / 1e4) + " in"
                            : Str(std::round(points / pointsPerMm * 1e2) / 1e2) + " mm";
}

/// Returns an end of a range as it was given, with more than 7 digits if necessary.
std::string Given(double value)
{
    std::string text = Str(value);
    if (Val(text) != value) {
        text = myformatstring(value, "0.000000000");
        text.erase(text.find_last_not_of('0') + 1);
    }
    return text;
}

/// Returns a value of the series 1, 2, 5, 10, 20, 50, 100, ...
double In125(int place)
{
    static constexpr std::array mantissas = {1.0, 2.0, 5.0};
    return mantissas[static_cast<std::size_t>(place % 3)] * powersOfTen[static_cast<std::size_t>(place / 3)];
}

/// A step of an axis: 1, 2, or 5 times a power of ten, from 1e-12 to 5e15.
class Step125 {
public:
    static constexpr int count = 3 * (mostDecimals + static_cast<int>(powersOfTen.size()));

    explicit Step125(int thePlace) : place(thePlace) {}

    int Exponent() const { return place / 3 - mostDecimals; }
    bool IsFive() const { return place % 3 == 2; }
    double Value() const
    {
        // A quotient of whole numbers is the nearest double to the decimal fraction.
        return Exponent() >= 0 ? In125(place - 3 * mostDecimals)
                               : In125(place % 3) / powersOfTen[static_cast<std::size_t>(-Exponent())];
    }

    /// Returns the first number of steps that `isEnough` accepts, that is a multiple of `divisor`, and whose value
    /// is 1, 2, or 5 times a power of ten.
    template <typename IsEnough>
    double Steps(double divisor, const IsEnough& isEnough) const
    {
        double steps = 1.0;
        for (int i = place % 3; i < 3 * mostDecimals; ++i) {
            steps = In125(i) / In125(place % 3);
            if (std::fmod(steps, divisor) == 0.0 && isEnough(steps)) {
                break;
            }
        }
        return steps;
    }

private:
    int place;  ///< in the series that begins with 1e-12
};

class LinearFitter {
public:
    LinearFitter(const DataRange& theRange, const Distances& theDistances, const AxisRoom& theRoom)
        : range(theRange), distances(theDistances), room(theRoom)
    {}

    std::optional<AxisFit> Fit() const
    {
        const std::optional<AxisFit> rounded = RoundFit();
        return rounded ? rounded : ExactFit();
    }

private:
    double Width() const { return range.maximum - range.minimum; }

    bool IsOfFineness(double spacing) const
    {
        return spacing >= distances.least * pointsPerMm && spacing <= distances.most * pointsPerMm;
    }

    /// Returns the number of whole spacings in the room, as the page computes it.
    double LinesFor(const std::string& density) const
    {
        return static_cast<double>(truncated(room.length / ((1.0 / Val(density)) * room.unitPixels)));
    }

    /// Returns the fit with a round distance between lines that leaves the least room free, or nothing if too much
    /// remains free.
    std::optional<AxisFit> RoundFit() const
    {
        std::optional<AxisFit> best;
        double bestUse = leastUse;
        const std::span<const double> densities =
            IsInInches(room) ? std::span(roundPerInch) : std::span(roundPerCm);
        for (const double density : densities) {
            const double spacing = (1.0 / density) * room.unitPixels;
            const std::optional<AxisFit> fit = IsOfFineness(spacing) ? FitWith(density) : std::nullopt;
            if (fit && Width() / (fit->last - fit->first) > bestUse) {
                best = fit;
                bestUse = Width() / (fit->last - fit->first);
            }
        }
        return best;
    }

    /// Returns the fit of the smallest step that shows the whole range at that density.
    std::optional<AxisFit> FitWith(double density) const
    {
        const double lines = LinesFor(Str(density));
        const double spacing = (1.0 / density) * room.unitPixels;
        for (int place = 0; place < Step125::count; ++place) {
            const Step125 step(place);
            if (!CanWrite(step) || lines * step.Value() < Width() * (1.0 - ofAStep)) {
                continue;
            }
            std::optional<AxisFit> fit = FitWith(step, spacing);
            if (fit && LinesNeeded(*fit) <= lines) {
                fit->last = fit->first + lines * fit->step;
                fit->density = Str(density);
                return fit;
            }
        }
        return {};
    }

    /// Returns the fit that fills the room with a distance between lines near the wanted one.
    std::optional<AxisFit> ExactFit() const
    {
        constexpr double leastDistance = 0.3;  // millimeters
        std::optional<AxisFit> best;
        double bestScore = HUGE_VAL;
        for (int place = 0; place < Step125::count; ++place) {
            const Step125 step(place);
            const double spacing = room.length / (Width() / step.Value());
            if (!CanWrite(step) || spacing < leastDistance * pointsPerMm || spacing > 2.0 * room.length) {
                continue;
            }
            std::optional<AxisFit> fit = FitWith(step, spacing);
            if (fit) {  // again, because the first line is before the range
                fit = FitWith(step, room.length / LinesNeeded(*fit));
            }
            if (!fit) {
                continue;
            }
            const double lines = LinesNeeded(*fit);
            fit->spacing = room.length / lines;
            fit->last = fit->first + lines * fit->step;
            // The extra 0.00001 keeps the last line from being lost to rounding.
            fit->density = Str(lines / (room.length / room.unitPixels) * 1.00001);
            const double use = Width() / (fit->last - fit->first);
            const double penalty = IsOfFineness(fit->spacing) ? 0.0 : 1.0;
            const double score =
                std::abs(std::log(fit->spacing / (distances.wanted * pointsPerMm))) + 1.0 - use + penalty;
            if (score < bestScore && LinesFor(fit->density) == lines) {
                best = fit;
                bestScore = score;
            }
        }
        return best;
    }

    /// Whether the page can write all multiples of the step in the range.
    bool CanWrite(const Step125& step) const
    {
        const double largest = std::max(std::abs(range.minimum), std::abs(range.maximum));
        const int digits = static_cast<int>(truncated(std::floor(std::log10(largest)))) - step.Exponent() + 1;
        return step.Exponent() >= 0 || digits <= digitsOfNumber;
    }

    /// Returns a fit without its last value and its density.
    std::optional<AxisFit> FitWith(const Step125& step, double spacing) const
    {
        AxisFit fit;
        fit.step = step.Value();
        fit.spacing = spacing;
        const double leastLines = step.IsFive() ? distances.leastMajorLinesOfFives : distances.leastMajorLines;
        fit.majorLines = step.Steps(1.0, [&](double lines) { return lines >= leastLines; });
        fit.numberLines = step.Steps(fit.majorLines, [&](double lines) { return NumbersHaveRoom(fit, lines); });
        // Numbers are counted from the first line and major lines from the value 0. They meet if the first line is
        // at a multiple of both.
        const double perNumber = fit.step * fit.numberLines;
        double numbers = std::floor(range.minimum / perNumber + ofAStep);
        constexpr int tries = 4;
        for (int i = 0; i < tries; ++i, numbers -= 1.0) {
            fit.first = Val(Str(numbers * fit.numberLines * fit.step));
            // As the page computes it: the quotient of 0.6 and 0.2 is below 3.
            const auto linesToZero = static_cast<double>(truncated(0.0 - fit.first / fit.step));
            if (std::fmod(linesToZero, fit.majorLines) == 0.0) {
                return fit;
            }
        }
        return {};
    }

    double LinesNeeded(const AxisFit& fit) const
    {
        return std::ceil((range.maximum - fit.first) / fit.step - ofAStep);
    }

    bool NumbersHaveRoom(const AxisFit& fit, double lines) const
    {
        const double apart = lines * fit.spacing;
        if (room.name == AxisName::y) {
            return apart >= 1.5 * room.textSize;
        }
        const double perNumber = fit.step * lines;
        double widest = 0.0;
        constexpr double mostNumbers = 200.0;  // more have no room anyway
        for (double number = std::floor(range.minimum / perNumber), i = 0.0;
             number * perNumber < range.maximum + perNumber && i < mostNumbers; number += 1.0, i += 1.0) {
            const double value = number * perNumber;
            const std::string text = room.isTrigonometric ? mytrigstring(value) : mystring(value);
            widest = std::max(widest, MyPDFGenerator::StringWidth(text, 0, truncated(room.textSize)));
        }
        return apart >= widest + MyPDFGenerator::StringWidth("0", 0, truncated(room.textSize));
    }

    const DataRange& range;
    const Distances& distances;
    const AxisRoom& room;
};

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
    const double unit = IsInInches(room) ? pointsPerInch / 4.0 : pointsPerCm / 2.0;
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

AxisFitOrProblem FitLog(const DataRange& range, const std::string& words, const AxisRoom& room)
{
    if (range.minimum <= 0.0) {
        return RangeProblem{words + " cannot be logarithmic: its minimum must be above 0"};
    }
    const int first = static_cast<int>(truncated(std::floor(std::log10(range.minimum) + ofAStep)));
    const int last = static_cast<int>(truncated(std::ceil(std::log10(range.maximum) - ofAStep)));
    const int decades = std::max(last - first, 1);
    if (decades > logFiveDecades) {
        return RangeProblem{words + " needs " + Str(decades) + " decades, from " + Str(std::pow(10.0, first)) +
                            " to " + Str(std::pow(10.0, last)) + "; a logarithmic axis has 1 to 5"};
    }
    return FitDecades(first, decades, room);
}

/// The part of the axis that a range below 0 must take up if the axis is extended to 0.
constexpr double leastUseBelowZero = 0.25;

AxisFitOrProblem FitLinear(DataRange range, const std::string& words, Fineness fineness, const AxisRoom& room)
{
    const double largest = std::max(std::abs(range.minimum), std::abs(range.maximum));
    const double lastDigit = std::floor(std::log10(largest)) + 1.0 - digitsOfNumber;
    const double narrowest = 10.0 * std::pow(10.0, std::clamp(lastDigit, 0.0 - mostDecimals, 0.0));
    if (range.maximum - range.minimum < narrowest * (1.0 - 1e-6)) {
        return RangeProblem{words +
                            " is too narrow: numbers on a page have up to 7 digits, so it must be at least " +
                            Str(narrowest) + " wide"};
    }
    if (range.maximum < 0.0 && room.showsAxes) {  // the page draws the other axis at 0, even beyond the edge
        const double highest = range.minimum * (1.0 - leastUseBelowZero);
        if (range.maximum < highest) {
            return RangeProblem{
                words + " is too far below 0, where the page draws the axis lines; its maximum must be at least " +
                Str(highest) + ", or Show Axes must be off"};
        }
        range.maximum = 0.0;
    }
    const Distances distances = DistancesOf(fineness);
    if (auto fit = LinearFitter(range, distances, room).Fit()) {
        return *std::move(fit);
    }
    return RangeProblem{words + " has no room in " + LengthOf(room.length, room) +
                        " between the margins; possible with larger paper or smaller margins or numbers"};
}

}  // namespace

AxisFitOrProblem FitAxis(const DataRange& range, Fineness fineness, const AxisRoom& room)
{
    const std::string words =
        "the " + NameOf(room.name) + " range " + Given(range.minimum) + " to " + Given(range.maximum);
    if (!(range.minimum < range.maximum)) {
        return RangeProblem{words + " is empty: its minimum must be below its maximum"};
    }
    if (range.minimum < -largestValue || range.maximum > largestValue) {
        return RangeProblem{words + " is too large: values can be from " + Str(-largestValue) + " to " +
                            Str(largestValue)};
    }
    constexpr double leastRoom = 10.0;  // millimeters
    if (!(room.length >= leastRoom * pointsPerMm)) {
        return RangeProblem{"the margins leave " + LengthOf(std::max(room.length, 0.0), room) + " for the " +
                            NameOf(room.name) + " axis; a range needs at least " +
                            LengthOf(leastRoom * pointsPerMm, room)};
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

std::string WordsOf(const AxisFit& fit, const AxisRoom& room)
{
    const std::string ends = Str(fit.first) + " to " + Str(fit.last);
    const std::string axis = NameOf(room.name) + " axis: ";
    if (fit.type != linear) {
        return axis + CountWords(static_cast<double>(fit.type), "decade") + " of " + LengthOf(fit.spacing, room) +
               ", " + ends;
    }
    return axis + ends + ", a line every " + Str(fit.step) + " (" + LengthOf(fit.spacing, room) +
           "), a number every " + Str(fit.step * fit.numberLines);
}

}  // namespace linealis
