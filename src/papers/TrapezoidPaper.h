#pragma once

#include "papers/DiagonalLines.h"

#include <string>

namespace linealis {

/// Lines at 60 degrees. The cell size stands between two lines of a family on the bottom edge.
struct TrapezoidForm final : DiagonalForm {};

struct TrapezoidPage : DiagonalPage {};

TrapezoidPage Read(const TrapezoidForm& form);
void Draw(const TrapezoidPage& page, MyPDFGenerator& pdf, Turns& turns);
std::string Describe(const TrapezoidPage& page);

}  // namespace linealis
