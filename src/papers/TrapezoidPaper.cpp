#include "papers/TrapezoidPaper.h"

#include "pdf/Units.h"
#include "pipeline/page/PageWords.h"

namespace linealis {

namespace {

double HeightWhereFallingLineEnters(const DiagonalPattern& /*pattern*/, double past)
{
    // The height is the tangent of 60 degrees times the distance.
    return (past / sine30) * cosine30;
}

}  // namespace

TrapezoidPage Read(const TrapezoidForm& form)
{
    return {ReadDiagonal(form)};
}

void Draw(const TrapezoidPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    const double size = page.size;
    const DiagonalPattern pattern{size * sine30, (2.0 * sine30) * size, cosine30 * size, (2.0 * cosine30) * size,
                                  2.0 * cosine30};
    DrawDiagonal(page, pattern, HeightWhereFallingLineEnters, pdf, turns);
}

Message Describe(const TrapezoidPage& page)
{
    return Message("triangles with sides of %1", LengthWords(page.size, page.frame));
}

}  // namespace linealis
