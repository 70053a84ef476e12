#pragma once

#include "papers/CellSize.h"

#include <functional>

namespace linealis {

// The common parts of axonometric and trapezoid paper: two families of slanted lines, rising and falling, with
// vertical and horizontal lines through their crossings. The two kinds differ only in the measures of the pattern.

/// The form of both kinds.
struct DiagonalForm : PaperForm {
    CellSizeFields cell;
    MinorWeightField minor;
    CheckBox CheckBoxHorizontal;
    CheckBox CheckBoxVertical;
    CellFrameFields outline;

    DiagonalForm();

    Message WhyIdle(const Control& control) const override;
};

/// The measures of the pattern, in points. The first line of each family is one step from the corner of the area,
/// and the others follow at the distance of the advance.
struct DiagonalPattern {
    double xStep = 0.0;
    double xAdvance = 0.0;
    double yStep = 0.0;
    double yAdvance = 0.0;
    /// The rise of the lines per point across.
    double slope = 0.0;
};

/// The values of a page of either kind. Lengths are in points.
struct DiagonalPage {
    PageFrame frame;
    double size = 0.0;
    double LineThickness = 0.0;
    double minorLineThickness = 0.0;  ///< of the frame and the vertical and horizontal lines
    bool drawsFrame = true;
    bool drawsVerticals = true;
    bool drawsHorizontals = true;
};

SettingsTable Settings(DiagonalForm& form);
DiagonalPage ReadDiagonal(const DiagonalForm& form);

/// Returns the height, from the bottom of the area, at which a falling line meets the right edge. The line would
/// cross the bottom edge `past` points beyond the right edge. Each kind computes it in its own way, which decides
/// the last bits.
using HeightOnRightEdge = double (*)(const DiagonalPattern& pattern, double past);

/// Draws the frame, the slanted lines, and the vertical and horizontal lines, in this order.
void DrawDiagonal(const DiagonalPage& page, const DiagonalPattern& pattern, HeightOnRightEdge heightOnRightEdge,
                  MyPDFGenerator& pdf, Turns& turns);

}  // namespace linealis
