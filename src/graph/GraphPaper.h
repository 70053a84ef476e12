#pragma once

#include "graph/GraphForm.h"
#include "pipeline/document/Paper.h"

#include <memory>
#include <string>

namespace linealis {

/// The values of one axis of a page. Lengths are in points; axis values are in the units of the axis.
struct GraphAxis {
    AxisName name = AxisName::x;
    AxisType type = linear;
    double lineSpacing = 0.0;  ///< between neighboring grid lines
    double lineThickness = 0.0;
    double majorStep = 0.0;  ///< the number of grid lines from one major line to the next
    double majorWeight = 0.0;
    double hydraulicExponent = 0.0;
    double minimum = 0.0;
    double maximum = 0.0;
    double step = 0.0;           ///< the axis value from one grid line to the next
    bool stepsForward = false;   ///< whether the step is above 0; otherwise, a hydraulic axis has no lines
    double numberSpacing = 0.0;  ///< the number of grid lines from one number to the next
    double weight = 0.0;         ///< of the line of the other axis (AxisRoles::line)
    double textSize = 0.0;
    bool isTrigonometric = false;  ///< whether its numbers are multiples of pi
    std::string title;
    double titleTextSize = 0.0;
    bool titlePlacesItself = false;
    double titleX = 0.0;  ///< from the left margin
    double titleY = 0.0;  ///< downward
};

/// The values of a page of graph paper. Lengths are in points.
struct GraphPage {
    PageFrame frame;
    GraphAxis x;
    GraphAxis y;
    Color lineColor;
    Color majorLineColor;
    std::int64_t font = 0;
    bool showsAxes = true;
    bool hasMarkers = false;
    std::string title;
    double titleSize = 0.0;
    bool titleIsCentred = false;
    double titleX = 0.0;  ///< from the left edge of the page
    double titleY = 0.0;  ///< downward
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(GraphForm& form);
GraphPage Read(const GraphForm& form);
void Draw(const GraphPage& page, MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask);
Message Describe(const GraphPage& page);
PageWarnings Warn(const GraphForm& form, const GraphPage& page);
/// Returns where a title whose fields X and Y are 0 stands, in points. Y is measured downward from the grid's
/// height above both margins; X from the left edge of the page, or, for an axis title, from the left margin.
Point TitleZero(const GraphPage& page, Role title);
std::unique_ptr<Wizard> MakeWizard(GraphForm& form);
std::unique_ptr<RangeWizard> MakeRangeWizard(GraphForm& form);

}  // namespace linealis
