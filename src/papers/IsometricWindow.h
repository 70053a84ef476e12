#pragma once

#include "papers/CellSizeWindow.h"

namespace linealis {

/// Verticals and two families of lines that rise and fall at 30 degrees: a triangular grid for isometric views.
class IsometricWindow final : public CellSizeWindow {
public:
    static constexpr FileType settingsType{"Seti", "seti"};

    explicit IsometricWindow(Platform& thePlatform);

protected:
    void DoGraph() override;

private:
    /// A line of the pattern, in points from the lower left corner of the usable area.
    void DrawLine(double x1, double y1, double x2, double y2);

    void DrawFromBottomEdge(double size);
    void DrawRisingFromLeftEdge(double size);
    void DrawFallingFromLeftAndTopEdge(double size);
};

}  // namespace linealis
