#pragma once

#include "papers/CellSize.h"

#include <string>

namespace linealis {

/// The form of isometric paper: a triangular grid of vertical lines and of lines that rise and fall at 30 degrees.
struct IsometricForm final : PaperForm {
    CellSizeFields cell{
        *this, "line-weight-of-the-pattern-and-its-frame", ".15", "pattern and its frame", {"frame", "grid"}};
    CellFrameFields outline{*this};
};

/// The values of a page of isometric paper. Lengths are in points.
struct IsometricPage {
    PageFrame frame;
    double size = 0.0;  ///< the distance between parallel slanted lines, along a vertical line
    double LineThickness = 0.0;
    bool drawsFrame = true;
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(IsometricForm& form);
IsometricPage Read(const IsometricForm& form);
void Draw(const IsometricPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const IsometricPage& page);

}  // namespace linealis
