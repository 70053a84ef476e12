#pragma once

#include "papers/DiagonalWindow.h"

namespace linealis {

/// Lines at 45 degrees. The cell size is the side of a diamond.
class AxonometricWindow final : public DiagonalWindow {
public:
    static constexpr FileType settingsType{"Seta", "seta"};

    explicit AxonometricWindow(Platform& thePlatform) : DiagonalWindow(thePlatform, settingsType) {}

protected:
    Pattern Measure() const override;
    double HeightOnRightEdge(const Pattern& pattern, double x) const override;
};

}  // namespace linealis
