#pragma once

#include "papers/CellSizeWindow.h"

#include <functional>

namespace linealis {

/// Two families of slanted lines, rising and falling, with verticals and horizontals through their crossings. The
/// axonometric and the trapezoid paper differ only in the measures of the pattern.
class DiagonalWindow : public CellSizeWindow {
protected:
    DiagonalWindow(Platform& thePlatform, const FileType& typeOfSettings);

    /// The pattern's measures. Lengths in points; the first line of each family stands at its step.
    struct Pattern {
        double xStep;
        double xAdvance;
        double yStep;
        double yAdvance;
        double slope;
    };
    virtual Pattern Measure() const = 0;

    /// The height at which a falling line that left the bottom edge at `x`, past the right edge, meets that edge.
    virtual double HeightOnRightEdge(const Pattern& pattern, double x) const = 0;

    void DoGraph() final;

private:
    using Draw = std::function<void(double position)>;

    /// Draws at every position from `start` to `limit`, both included. Returns the first position past it. A step
    /// of 0 or less draws nothing, one too small to move the position ends the family.
    double Repeat(double start, double limit, double step, const Draw& draw);

    /// A line of the pattern, cut at the edges of the usable area.
    void Clip(double x1, double y1, double x2, double y2);

    void DrawDiagonals(const Pattern& pattern);
    void DrawVerticalsAndHorizontals(const Pattern& pattern);
};

}  // namespace linealis
