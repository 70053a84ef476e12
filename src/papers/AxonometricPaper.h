#pragma once

#include "papers/DiagonalLines.h"

#include <string>

namespace linealis {

/// Lines at 45 degrees. The cell size is the side of a diamond.
struct AxonometricForm final : DiagonalForm {};

struct AxonometricPage : DiagonalPage {};

AxonometricPage Read(const AxonometricForm& form);
void Draw(const AxonometricPage& page, MyPDFGenerator& pdf, Turns& turns);
std::string Describe(const AxonometricPage& page);

}  // namespace linealis
