#pragma once

#include "papers/DiagonalLines.h"

#include <string>

namespace linealis {

/// The form of trapezoid paper: lines at 60 degrees. The cell size is the distance between parallel lines along the
/// bottom edge.
struct TrapezoidForm final : DiagonalForm {};

struct TrapezoidPage : DiagonalPage {};

// The functions of the kind that MakePaper and PageOf call. Settings takes the DiagonalForm.
TrapezoidPage Read(const TrapezoidForm& form);
void Draw(const TrapezoidPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const TrapezoidPage& page);

}  // namespace linealis
