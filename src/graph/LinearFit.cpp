#include "graph/LinearFit.h"

#include "graph/AxisFunctions.h"
#include "pdf/Units.h"
#include "text/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>

namespace linealis {

namespace {

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

/// The range must take up this part of the axis for a round distance between lines.
constexpr double leastUse = 0.7;

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
            room.IsInInches() ? std::span(roundPerInch) : std::span(roundPerCm);
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

}  // namespace

std::optional<AxisFit> FitLines(const DataRange& range, Fineness fineness, const AxisRoom& room)
{
    const Distances distances = DistancesOf(fineness);
    return LinearFitter(range, distances, room).Fit();
}

}  // namespace linealis
