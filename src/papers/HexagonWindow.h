#pragma once

#include "papers/CellSizeWindow.h"

namespace linealis {

/// A honeycomb with flat sides at the top and bottom of its cells, of whole rows and columns, centred on the page.
/// The cell size is the side of a hexagon.
class HexagonWindow final : public CellSizeWindow {
public:
    static constexpr FileType settingsType{"Seth", "seth"};

    explicit HexagonWindow(Platform& thePlatform);

protected:
    void DoGraph() override;

private:
    void MeasureCells();
    void FitAcross();
    void FitUp();
    void DrawHexagons();
    void DrawHexagon(double x, double y);
    void DrawJoiningLines();

    /// A line, cut at the edges of the fitted grid.
    void Clip(double x1, double y1, double x2, double y2);

    double side = 0.0;  ///< points, like the other measures
    double doubleSide = 0.0;
    double cellHeight = 0.0;
    double numAcross = 0.0;       ///< whole
    double numberVertical = 0.0;  ///< whole
};

}  // namespace linealis
