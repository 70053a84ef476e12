#include "papers/TrapezoidWindow.h"

#include <cmath>

namespace linealis {

namespace {

const double cosine30 = std::sqrt(0.75);
constexpr double sine30 = 0.5;

}  // namespace

DiagonalWindow::Pattern TrapezoidWindow::Measure() const
{
    const double size = CellSize();
    return {size * sine30, (2.0 * sine30) * size, cosine30 * size, (2.0 * cosine30) * size, 2.0 * cosine30};
}

double TrapezoidWindow::HeightOnRightEdge(const Pattern& /*pattern*/, double x) const
{
    return ((x - usableWidth) / sine30) * cosine30;
}

}  // namespace linealis
