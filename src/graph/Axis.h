#pragma once

#include <cstdint>
#include <string_view>

namespace linealis {

/// The list indices of PopupXAxis and PopupYAxis. Of the logarithmic types the value is the number of decades.
enum AxisType : int { linear = 0, logOneDecade = 1, logFiveDecades = 5, hydraulic = 6, probability = 7 };

/// The names of one axis's controls.
struct AxisControls {
    std::string_view lineSpacing;
    std::string_view lineThickness;
    std::string_view major;
    std::string_view majorWeight;
    std::string_view hydraulicExponent;
    std::string_view type;
    std::string_view minimum;
    std::string_view maximum;
    std::string_view step;
    std::string_view spacing;
    std::string_view weight;
    std::string_view textSize;
    std::string_view numberType;
    std::string_view title;
    std::string_view autoPosition;
    std::string_view titleTextSize;
    std::string_view titleX;
    std::string_view titleY;
};

inline constexpr AxisControls xControls = {
    "EditXLineSpacing",       "EditXLineThickness",     "EditXMajor",
    "EditXMajorWeight",       "EditXHydraulicExponent", "PopupXAxis",
    "EditXAxisMinimum",       "EditXAxisMaximum",       "EditXAxisStep",
    "EditXAxisSpacing",       "EditXAxisWeight",        "EditXAxisTextSize",
    "PopupXAxisType",         "EditXAxisTitle",         "CheckAutoPosXAxisText",
    "EditXAxisTitleTextSize", "EditXAxisTitleX",        "EditXAxisTitleY"};

inline constexpr AxisControls yControls = {
    "EditYLineSpacing",       "EditYLineThickness",     "EditYMajor",
    "EditYMajorWeight",       "EditYHydraulicExponent", "PopupYAxis",
    "EditYAxisMinimum",       "EditYAxisMaximum",       "EditYAxisStep",
    "EditYAxisSpacing",       "EditYAxisWeight",        "EditYAxisTextSize",
    "PopupYAxisType",         "EditYAxisTitle",         "CheckAutoPosYAxisText",
    "EditYAxisTitleTextSize", "EditYAxisTitleX",        "EditYAxisTitleY"};

/// One axis of a graph: its numbers for the page that is being drawn. Lengths are in points.
struct Axis {
    const AxisControls& controls;

    // From the form.
    double lineSpacing = 0.0;  ///< between two neighbouring grid lines
    double lineThickness = 0.0;
    double majorStep = 0.0;  ///< every how many grid lines a major line falls
    double majorWeight = 0.0;
    int type = linear;
    double step = 0.0;     ///< axis value from one grid line to the next
    double spacing = 0.0;  ///< every how many grid lines a number stands
    double hydraulicExponent = 0.0;

    // Set while the page is drawn.
    double numLines = 0.0;          ///< whole; the first and the last line included
    double graphSize = 0.0;         ///< whole; the grid's size along the axis
    double zero = 0.0;              ///< where the value zero lies, from the graph's corner
    double hydraulicOffset = 0.0;   ///< the minimum raised to the exponent
    double hydraulicScaling = 0.0;  ///< points per unit of the raised value

    bool IsX() const { return &controls == &xControls; }
    bool IsLog() const { return type >= logOneDecade && type <= logFiveDecades; }
};

}  // namespace linealis
