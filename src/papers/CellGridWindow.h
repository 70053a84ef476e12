#pragma once

#include "pipeline/PaperWindow.h"

#include <cstdint>

namespace linealis {

/// What the grid, dots, crosses and brick papers share: whole cells, centred between the margins, with horizontal
/// and vertical lines on their edges.
class CellGridWindow : public PaperWindow {
protected:
    using PaperWindow::PaperWindow;

    void ReadOwnValues() override;

    /// Measures the grid: columns and rows, and the margins moved in so that it stands centred. Marks of the given
    /// size on its crossings stay inside the margins.
    void FitCells(double markWidth = 0.0, double markHeight = 0.0);

    double ColumnX(double column) const { return column * horzSpacing + leftMargin; }
    double RowY(double row) const { return row * vertSpacing + bottomMargin; }

    /// The lines of one direction, in their weight, from the left or the bottom.
    void DrawHorizontalLines();
    void DrawVerticalLines();

    /// Both, each only if its check box is on.
    void DrawChosenLines();

    /// Calls draw(x, y) for every crossing, row by row from the bottom, each from the left.
    template <typename Draw>
    void ForEachCrossing(Draw draw)
    {
        if (columns < 0.0) {
            return;  // there may be more empty rows than anyone can wait for
        }
        for (double j = 0.0; j <= rows; j += 1.0) {
            for (double i = 0.0; i <= columns; i += 1.0) {
                draw(ColumnX(i), RowY(j));
                RuntimeBackgroundTask();
            }
            RuntimeBackgroundTask();
        }
    }

    double vertSpacing = 0.0;     ///< points between two horizontal lines
    double horzSpacing = 0.0;     ///< points between two vertical lines
    double horzLineWeight = 0.0;  ///< points
    double vertLineWeight = 0.0;  ///< points
    double columns = 0.0;         ///< whole; set by FitCells, like rows. Below 0: no cells, not even an edge
    double rows = 0.0;
};

/// The two spacings, each with its default, and what a kind adds to them.
ControlGroup SpacingControls(std::string_view vertical, std::string_view horizontal,
                             std::vector<Control> more = {});

/// A weight field and its check box. The two do not belong together: the box "Vertical Lines" governs the weight of
/// the horizontal lines and the other way round. Existing forms and settings files have it so.
ControlGroup LineControls(bool linesOn, std::vector<Control> swatches);

/// Binds the two check boxes to the weight fields that they enable.
void BindLineControls(PaperForm& form);

}  // namespace linealis
