#pragma once

#include "papers/DiagonalWindow.h"

namespace linealis {

/// Lines at 60 degrees, which the horizontals make into trapezoids. The cell size is the distance of two lines of a
/// family along the bottom edge.
class TrapezoidWindow final : public DiagonalWindow {
public:
    static constexpr FileType settingsType{"Sett", "sett"};

    explicit TrapezoidWindow(Platform& thePlatform) : DiagonalWindow(thePlatform, settingsType) {}

protected:
    Pattern Measure() const override;
    double HeightOnRightEdge(const Pattern& pattern, double x) const override;
};

}  // namespace linealis
