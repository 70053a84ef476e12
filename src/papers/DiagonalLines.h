#pragma once

#include "papers/CellSize.h"

#include <functional>

namespace linealis {

// What the axonometric and the trapezoid paper share: two families of slanted lines, rising and falling, with
// verticals and horizontals through their crossings. They differ only in the measures of the pattern.

struct DiagonalForm : PaperForm {
    CellSizeFields cell;
    MinorWeightField minor;
    CheckBox CheckBoxHorizontal;
    CheckBox CheckBoxVertical;
    CellFrameFields outline;

    DiagonalForm();

    std::string WhyIdle(const Control& control) const override;
};

/// The pattern's measures, in points; the first line of each family stands at its step.
struct DiagonalPattern {
    double xStep = 0.0;
    double xAdvance = 0.0;
    double yStep = 0.0;
    double yAdvance = 0.0;
    double slope = 0.0;
};

/// Lengths in points.
struct DiagonalPage {
    PageFrame frame;
    double size = 0.0;
    double LineThickness = 0.0;
    double minorLineThickness = 0.0;  ///< of the frame, the verticals and the horizontals
    bool drawsFrame = true;
    bool drawsVerticals = true;
    bool drawsHorizontals = true;
};

SettingsTable Settings(DiagonalForm& form);
DiagonalPage ReadDiagonal(const DiagonalForm& form);

/// The height at which a falling line that left the bottom edge `past` points behind the right edge, meets that
/// edge.
using HeightOnRightEdge = double (*)(const DiagonalPattern& pattern, double past);

void DrawDiagonal(const DiagonalPage& page, const DiagonalPattern& pattern, HeightOnRightEdge heightOnRightEdge,
                  MyPDFGenerator& pdf, Turns& turns);

}  // namespace linealis
