#pragma once

#include "papers/CellSize.h"

#include <string>

namespace linealis {

/// The form of hexagon paper: hexagons with flat sides at the top and the bottom, in whole rows and columns that
/// are centered between the margins. The cell size is the side of a hexagon.
struct HexagonForm final : PaperForm {
    CellSizeFields cell{*this, "line-weight-of-the-hexagons", ".3", "hexagons", {"cell"}};
    MinorWeightField minor{*this, "minor-line-weight-of-the-frame", "frame", {"frame"}};
    CellFrameFields outline{*this};

    Message WhyIdle(const Control& control) const override;
};

/// The values of a page of hexagon paper. Lengths are in points.
struct HexagonPage {
    PageFrame frame;
    double side = 0.0;
    double doubleSide = 0.0;
    /// The height of a hexagon from flat to flat: sqrt(3) sides.
    double cellHeight = 0.0;
    double LineThickness = 0.0;
    double minorLineThickness = 0.0;  ///< of the frame
    bool drawsFrame = true;
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(HexagonForm& form);
HexagonPage Read(const HexagonForm& form);
void Draw(const HexagonPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const HexagonPage& page);

}  // namespace linealis
