#pragma once

#include "papers/DiagonalLines.h"

#include <string>

namespace linealis {

/// The form of axonometric paper: lines at 45 degrees. The cell size is the side of a diamond.
struct AxonometricForm final : DiagonalForm {};

struct AxonometricPage : DiagonalPage {};

// The functions of the kind that MakePaper and PageOf call. Settings takes the DiagonalForm.
AxonometricPage Read(const AxonometricForm& form);
void Draw(const AxonometricPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const AxonometricPage& page);

}  // namespace linealis
