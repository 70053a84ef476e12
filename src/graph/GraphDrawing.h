#pragma once

#include "graph/GraphPaper.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace linealis {

/// Draws one page of graph paper. Positions and lengths are in points, with the origin at the lower left corner of
/// the page.
class GraphDrawing {
public:
    GraphDrawing(const GraphPage& thePage, MyPDFGenerator& thePdf, Turns& theTurns, const PageQuestions& theAsk)
        : page(thePage), pdf(thePdf), turns(theTurns), ask(theAsk)
    {}

    /// Draws the whole page. Call once.
    void DoGraph();

private:
    /// An axis and the measures of its drawing.
    struct Axis {
        const GraphAxis& form;
        const AxisRoles& roles;
        double origin;          ///< where the axis begins on the page: at the left or the bottom margin
        double usable;          ///< the length of the axis: first the room, then the size of the grid (see DoGraph)
        double numLines = 0.0;  ///< whole, including the first and the last line
        double graphSize = 0.0;  ///< whole; the size of the grid along the axis
        double zero = 0.0;       ///< the distance of the value 0 from the corner of the graph

        bool IsX() const { return form.name == AxisName::x; }
        AxisType Type() const { return form.type; }
    };

    /// Computes the number of lines and the size of the grid from the room along the axis.
    void MeasureGrid(Axis& axis);
    void PlotAxesThatFillTheRoom();
    void PlotAxesThatFillTheGrid();
    /// Finds where the value 0 is on a linear axis.
    void FindZero(Axis& axis) const;
    void DrawAxes();
    void DrawAxisLines();
    void DrawXAxisTitle();
    void DrawYAxisTitle();
    void DrawTitle();

    // Used by all plotters.
    /// Returns the other axis.
    const Axis& Across(const Axis& axis) const { return axis.IsX() ? y : x; }
    /// Draws a grid line of the axis at `position` along it, from the edge of the graph to `end` across it.
    void DrawGridLine(const Axis& axis, double position, double end);
    /// Returns where the lines of the axis end if they fill the grid.
    double GridEnd(const Axis& axis) const { return Across(axis).graphSize + Across(axis).origin; }
    void SetMinorStyle(const Axis& axis);
    void SetMajorStyle(const Axis& axis);
    /// Returns the width of a text in points. The size is truncated, as SetFont does.
    double WidthOf(std::string_view text, double size) const;
    /// Shows a text in black and then restores the color of the lines.
    void ShowBlack(const std::string& text, double atX, double atY);

    // One plotter per type of axis, each in its own file.
    void PlotLinearAxis(const Axis& axis);
    void DrawLinearNumbers(const Axis& axis);
    void PlotLogAxis(const Axis& axis);
    void DrawLogNumber(const Axis& axis, double value, double position);
    void PlotHydraulicAxis(const Axis& axis);
    bool HydraulicAxisIsValid(const Axis& axis) const;
    void DrawHydraulicNumber(const Axis& axis, double value, double position);
    void PlotProbabilityYAxis();
    void PlotMarkers();
    void PlotMarker(std::string_view line);
    static double MarkerPosition(const Axis& axis, double value);

    const GraphPage& page;
    MyPDFGenerator& pdf;
    Turns& turns;
    const PageQuestions& ask;
    const double leftMargin = page.frame.leftMargin;
    const double bottomMargin = page.frame.bottomMargin;
    Axis x{page.x, rolesOfX, leftMargin, page.frame.UsableWidth()};
    Axis y{page.y, rolesOfY, bottomMargin, page.frame.UsableHeight()};
};

/// Returns the height in points that the drawing assumes for a line of text of that size.
inline double TextHeight(double size)
{
    return 0.0 + size * 0.63;
}

/// Determines which grid lines are major: those at whole multiples of the major step from the value 0, wherever the
/// axis starts. Go through the lines in order.
class MajorRhythm {
public:
    explicit MajorRhythm(const GraphAxis& axis);

    /// Advances to the next line, beginning with the first. Returns whether it is major.
    bool NextLineIsMajor();

private:
    double majorStep;
    double majorCount;
};

/// Maps the values of a hydraulic axis to their distance from its beginning. The distance is linear in the value
/// raised to the exponent of the axis.
class HydraulicScale {
public:
    /// The axis is `usable` points long from its minimum to its maximum.
    HydraulicScale(const GraphAxis& axis, double usable);

    /// Returns the distance of a value from the minimum in points. NaN for a negative value if the exponent is not
    /// whole.
    double PositionOf(double value) const;

private:
    double exponent;
    double offset;   ///< the minimum raised to the exponent
    double scaling;  ///< points per unit of the raised value
};

}  // namespace linealis
