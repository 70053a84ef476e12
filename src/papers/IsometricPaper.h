#pragma once

#include "papers/CellSize.h"

#include <string>

namespace linealis {

/// Verticals and two families of lines that rise and fall at 30 degrees: a triangular grid for isometric views.
struct IsometricForm final : PaperForm {
    CellSizeFields cell{
        *this, "line-weight-of-the-pattern-and-its-frame", ".15", "pattern and its frame", {"frame", "grid"}};
    CellFrameFields outline{*this};
};

/// Lengths in points.
struct IsometricPage {
    PageFrame frame;
    double size = 0.0;  ///< along a vertical, between two lines of a slanted family
    double LineThickness = 0.0;
    bool drawsFrame = true;
};

SettingsTable Settings(IsometricForm& form);
IsometricPage Read(const IsometricForm& form);
void Draw(const IsometricPage& page, MyPDFGenerator& pdf, Turns& turns);
std::string Describe(const IsometricPage& page);

}  // namespace linealis
