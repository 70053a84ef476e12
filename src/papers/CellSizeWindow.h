#pragma once

#include "pipeline/PaperWindow.h"

#include <vector>

namespace linealis {

/// What the papers with one cell size share: isometric, axonometric, trapezoid and hexagon.
class CellSizeWindow : public PaperWindow {
protected:
    using PaperWindow::PaperWindow;

    void ReadOwnValues() override;

    /// The cell size in points.
    double CellSize() const { return form.Number("EditSize") * unitPixels; }

    /// Four lines about the usable area, only if the user wants them.
    void DrawFrame();

    double LineThickness = 0.0;       ///< points
    double minorLineThickness = 0.0;  ///< points; 0 where the form has no such field
};

/// The form of such a kind. The boxes stand between the cell size and "Draw Frame".
ControlTable CellSizeControls(std::vector<Control> weights, std::vector<Control> boxes);

/// The settings file of such a kind; the boxes stand behind CheckBoxViewGraph.
SettingsTable CellSizeSettings(const SettingsTable& boxes);

}  // namespace linealis
