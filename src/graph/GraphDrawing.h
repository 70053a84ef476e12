#pragma once

#include "graph/GraphPaper.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace linealis {

/// Draws one page of graph paper. Positions and lengths in points.
class GraphDrawing {
public:
    GraphDrawing(const GraphPage& thePage, MyPDFGenerator& thePdf, Turns& theTurns, const PageQuestions& theAsk)
        : page(thePage), pdf(thePdf), turns(theTurns), ask(theAsk)
    {}

    void DoGraph();

private:
    /// An axis while it is drawn.
    struct Axis {
        const GraphAxis& form;
        const AxisRoles& roles;
        double origin;           ///< where it begins on the page
        double usable;           ///< the room along it; once the grid is measured and wanted, the grid's size
        double numLines = 0.0;   ///< whole; the first and the last line included
        double graphSize = 0.0;  ///< whole; the grid's size along the axis
        double zero = 0.0;       ///< where the value zero lies, from the graph's corner

        bool IsX() const { return form.name == AxisName::x; }
        AxisType Type() const { return form.type; }
    };

    void MeasureGrid(Axis& axis);
    void PlotAxesThatFillTheRoom();
    void PlotAxesThatFillTheGrid();
    void FindZero(Axis& axis) const;
    void DrawAxes();
    void DrawAxisLines();
    void DrawXAxisTitle();
    void DrawYAxisTitle();
    void DrawTitle();

    // What the plotters share.
    const Axis& Across(const Axis& axis) const { return axis.IsX() ? y : x; }
    /// A grid line of the axis: at `position` along it, from the graph's edge to `end` across it.
    void DrawGridLine(const Axis& axis, double position, double end);
    /// Where the lines of the axis end when the grid is what they fill.
    double GridEnd(const Axis& axis) const { return Across(axis).graphSize + Across(axis).origin; }
    void SetMinorStyle(const Axis& axis);
    void SetMajorStyle(const Axis& axis);
    double WidthOf(std::string_view text, double size) const;
    /// A black text at the place, after which the color of the lines is in force again.
    void ShowBlack(const std::string& text, double atX, double atY);

    // One plotter a type of axis, in a file each.
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

/// The height that the drawing takes a line of text of that size to have.
inline double TextHeight(double size)
{
    return 0.0 + size * 0.63;
}

/// Which grid lines are major: those on whole multiples of the major step from the value zero, wherever the axis
/// starts.
class MajorRhythm {
public:
    explicit MajorRhythm(const GraphAxis& axis);

    /// Goes on to the next line, beginning with the first. Returns whether it is major.
    bool NextLineIsMajor();

private:
    double majorStep;
    double majorCount;
};

/// Where values lie on a hydraulic axis, from its beginning.
class HydraulicScale {
public:
    /// `usable` points from the axis's minimum to its maximum.
    HydraulicScale(const GraphAxis& axis, double usable);

    double PositionOf(double value) const;

private:
    double exponent;
    double offset;   ///< the minimum raised to the exponent
    double scaling;  ///< points per unit of the raised value
};

}  // namespace linealis
