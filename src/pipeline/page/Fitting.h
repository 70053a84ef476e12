#pragma once

#include "text/Numbers.h"

#include <cstdint>

namespace linealis {

/// How many whole cells of `spacing` fit into `usable`: the quotient truncated towards zero. A spacing of 0 has
/// no cells at all, which is -1: fewer than the 0 cells whose one line stands in the middle.
inline std::int64_t WholeCells(double usable, double spacing)
{
    return spacing == 0.0 ? -1 : truncated(usable / spacing);
}

/// How far a pattern of whole cells moves in from the margin to stand centered in `usable`. A mark as wide as
/// `mark`, centered on the first and the last line, stays inside.
inline double CentringShift(double usable, std::int64_t cells, double spacing, double mark = 0.0)
{
    return (usable - static_cast<double>(cells) * spacing + mark) / 2.0;
}

/// How many lines fit when the first stands on the margin. The 0.001 points keep a size that is a whole multiple
/// of the spacing from losing a line to rounding.
inline std::int64_t LinesThatFit(double usable, double spacing)
{
    return truncated((0.001 + usable) / spacing + 1.0);
}

/// Whether a position that grows by `step` ever gets anywhere. A loop that accumulates asks before each round,
/// so that a step of 0 or less, or one too small to move the position, ends it.
inline bool Advances(double position, double step)
{
    return step > 0.0 && position + step > position;
}

/// How many positions there are from `first` up to `limit`, `step` points apart and added up one by one, as a
/// drawing does. From a million on, and where no step leads on, it is an estimate.
double Positions(double first, double limit, double step);

}  // namespace linealis
