#include "papers/AxonometricPaper.h"

#include "pipeline/page/PageWords.h"

#include <cmath>

namespace linealis {

namespace {

double HeightWhereFallingLineEnters(const DiagonalPattern& pattern, double past)
{
    // Equals `past` except for the last bits, which existing pages depend on.
    return -(2.0 * pattern.xStep - past) + 2.0 * pattern.xStep;
}

}  // namespace

AxonometricPage Read(const AxonometricForm& form)
{
    return {ReadDiagonal(form)};
}

void Draw(const AxonometricPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    // Half a diagonal of a diamond.
    const double step = page.size * (1.0 / std::sqrt(2.0));
    DrawDiagonal(page, {step, 2.0 * step, step, 2.0 * step, 1.0}, HeightWhereFallingLineEnters, pdf, turns);
}

Message Describe(const AxonometricPage& page)
{
    return Message("squares of %1 at 45 degrees", LengthWords(page.size, page.frame));
}

}  // namespace linealis
