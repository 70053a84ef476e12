#pragma once

#include "text/Numbers.h"

#include <cstdint>

namespace linealis {

/// Returns the number of whole cells of `spacing` that fit into `usable`, truncated toward zero. Returns -1 for a
/// spacing of 0, which has no cells at all; that differs from 0 cells, which have one line in the middle.
inline std::int64_t WholeCells(double usable, double spacing)
{
    return spacing == 0.0 ? -1 : truncated(usable / spacing);
}

/// Returns how far to move a pattern of whole cells from the margin so that it is centered in `usable`. Marks of
/// width `mark`, centered on the first and the last line, stay inside.
inline double CentringShift(double usable, std::int64_t cells, double spacing, double mark = 0.0)
{
    return (usable - static_cast<double>(cells) * spacing + mark) / 2.0;
}

/// Returns the number of lines that fit if the first one is on the margin. The extra 0.001 points prevent a size
/// that is a whole multiple of the spacing from losing a line to rounding.
inline std::int64_t LinesThatFit(double usable, double spacing)
{
    return truncated((0.001 + usable) / spacing + 1.0);
}

/// Whether adding `step` moves the position forward. A loop that accumulates positions checks this before each
/// round, so that it ends if the step is 0 or less, or too small to change the position.
inline bool Advances(double position, double step)
{
    return step > 0.0 && position + step > position;
}

/// Returns the number of positions from `first` up to `limit`, `step` points apart and accumulated as a drawing
/// does it. The result is an estimate above a million positions, and 1 or 0 if the step does not advance.
double Positions(double first, double limit, double step);

}  // namespace linealis
