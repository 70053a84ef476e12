#include "papers/AxonometricWindow.h"

#include <cmath>

namespace linealis {

DiagonalWindow::Pattern AxonometricWindow::Measure() const
{
    const double step = CellSize() * (1.0 / std::sqrt(2.0));
    return {step, 2.0 * step, step, 2.0 * step, 1.0};
}

double AxonometricWindow::HeightOnRightEdge(const Pattern& pattern, double x) const
{
    // x - usableWidth in a longer way, which differs from it in the last bits.
    return -(2.0 * pattern.xStep - (x - usableWidth)) + 2.0 * pattern.xStep;
}

}  // namespace linealis
