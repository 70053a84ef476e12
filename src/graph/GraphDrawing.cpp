#include "graph/GraphDrawing.h"

#include "pipeline/page/PageWords.h"
#include "text/Numbers.h"

namespace linealis {

namespace {

/// Returns the number of lines of the axis that fit into the room, including the first one. A whole number.
double LinesInRoom(const GraphAxis& axis, double usable)
{
    return static_cast<double>(truncated(usable / axis.lineSpacing)) + 1.0;
}

/// Returns the size of the grid along an axis in points. A whole number.
double GridSize(const GraphAxis& axis, double numLines)
{
    return static_cast<double>(truncated((numLines - 1.0) * axis.lineSpacing));
}

/// Describes the type of an axis in a few words.
Message AxisWords(const GraphAxis& axis)
{
    switch (axis.type) {
    case linear:
        return Message("linear");
    case hydraulic:
        return Message("hydraulic %1", axis.hydraulicExponent);
    case probability:
        return Message("probability");
    default:
        return DecadeWords(axis.type);
    }
}

}  // namespace

void Draw(const GraphPage& page, MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask)
{
    GraphDrawing(page, pdf, turns, ask).DoGraph();
}

Point TitleZero(const GraphPage& page, Role title)
{
    const double height = GridSize(page.y, LinesInRoom(page.y, page.frame.UsableHeight()));
    return {title == "title.page" ? 0.0 : page.frame.leftMargin,
            page.frame.topMargin + page.frame.bottomMargin + height};
}

void GraphDrawing::DoGraph()
{
    pdf.SetFont(page.font, 10.0);
    MeasureGrid(x);
    MeasureGrid(y);
    PlotAxesThatFillTheRoom();
    // From here on, the usable area is the grid, which is at the lower left of the room. The order matters: the
    // axes above fill the whole room.
    x.usable = x.graphSize;
    y.usable = y.graphSize;
    PlotAxesThatFillTheGrid();

    pdf.SetRGBColor(0.0, 0.0, 0.0);
    FindZero(x);
    FindZero(y);
    if (page.hasMarkers) {
        PlotMarkers();
    }
    if (page.showsAxes) {
        DrawAxes();
    }
    DrawTitle();
}

void GraphDrawing::MeasureGrid(Axis& axis)
{
    axis.numLines = LinesInRoom(axis.form, axis.usable);
    axis.graphSize = GridSize(axis.form, axis.numLines);
}

void GraphDrawing::PlotAxesThatFillTheRoom()
{
    if (x.Type() == hydraulic) {
        PlotHydraulicAxis(x);
    }
    if (y.Type() == hydraulic) {
        PlotHydraulicAxis(y);
    }
    if (y.Type() == probability) {
        PlotProbabilityYAxis();
    }
}

void GraphDrawing::PlotAxesThatFillTheGrid()
{
    for (const Axis* const axis : {&x, &y}) {
        if (axis->Type() == linear) {
            PlotLinearAxis(*axis);
        } else if (IsLog(axis->Type())) {
            PlotLogAxis(*axis);
        }
    }
}

void GraphDrawing::FindZero(Axis& axis) const
{
    axis.zero = (-axis.form.minimum) * axis.form.lineSpacing / axis.form.step;
    // The value 0 is before the grid: its line goes to the edge.
    if (axis.zero < 0.0) {
        axis.zero = 0.0;
    }
}

void GraphDrawing::DrawGridLine(const Axis& axis, double position, double end)
{
    if (axis.IsX()) {
        pdf.StrokeLine(position, bottomMargin, position, end);
    } else {
        pdf.StrokeLine(leftMargin, position, end, position);
    }
    turns.RuntimeBackgroundTask();
}

void GraphDrawing::SetMinorStyle(const Axis& axis)
{
    pdf.SetRole(axis.roles.minor);
    pdf.SetLineWidth(axis.form.lineThickness);
    pdf.SetRGBColor(page.lineColor);
}

void GraphDrawing::SetMajorStyle(const Axis& axis)
{
    pdf.SetRole(axis.roles.major);
    pdf.SetLineWidth(axis.form.majorWeight);
    pdf.SetRGBColor(page.majorLineColor);
}

double GraphDrawing::WidthOf(std::string_view text, double size) const
{
    return MyPDFGenerator::StringWidth(text, page.font, truncated(size));
}

void GraphDrawing::ShowBlack(const std::string& text, double atX, double atY)
{
    pdf.SetRGBColor(0.0, 0.0, 0.0);
    pdf.SetTextPos(atX, atY);
    pdf.Show(text);
    pdf.SetRGBColor(page.lineColor);
}

void GraphDrawing::DrawAxes()
{
    // Only a linear axis has a zero. The line of any other axis is at the edge of the graph.
    if (x.Type() > linear) {
        x.zero = 0.0;
    }
    if (y.Type() > linear) {
        y.zero = 0.0;
    }
    DrawAxisLines();
    for (const Axis* const axis : {&x, &y}) {
        if (axis->Type() == linear) {
            DrawLinearNumbers(*axis);
        }
    }
    DrawXAxisTitle();
    DrawYAxisTitle();
}

void GraphDrawing::DrawAxisLines()
{
    // The weight of the horizontal line comes from the Y row and vice versa: existing forms depend on it.
    pdf.SetRole("axis.x");
    pdf.SetLineWidth(page.y.weight);
    const double height = y.zero + bottomMargin;
    pdf.StrokeLine(leftMargin, height, x.graphSize + leftMargin, height);
    pdf.SetRole("axis.y");
    pdf.SetLineWidth(page.x.weight);
    const double across = x.zero + leftMargin;
    pdf.StrokeLine(across, bottomMargin, across, y.graphSize + bottomMargin);
}

void GraphDrawing::DrawXAxisTitle()
{
    pdf.SetRole("title.x");
    pdf.SetFont(page.font, page.x.titleTextSize);
    const double w = WidthOf(page.x.title, page.x.titleTextSize);
    if (page.x.titlePlacesItself) {
        pdf.SetTextPos(static_cast<double>(truncated(x.usable / 2.0 + leftMargin - w / 2.0)),
                       static_cast<double>(truncated(bottomMargin + y.zero - 25.0)));
    } else {
        pdf.SetTextPos(page.x.titleX + leftMargin, TitleZero(page, x.roles.title).y - page.x.titleY);
    }
    pdf.Show(page.x.title);
}

void GraphDrawing::DrawYAxisTitle()
{
    constexpr double upwards = 90.0;
    pdf.SetRole("title.y");
    pdf.SetFont(page.font, page.y.titleTextSize);
    const double w = WidthOf(page.y.title, page.y.titleTextSize);
    pdf.SetTextPos(0.0, 0.0);
    if (page.y.titlePlacesItself) {
        pdf.ShowRotated(page.y.title, upwards, static_cast<double>(truncated(leftMargin + x.zero - 25.0)),
                        static_cast<double>(truncated(y.usable / 2.0 + bottomMargin - w / 2.0)));
    } else {
        pdf.ShowRotated(page.y.title, upwards, page.y.titleX + leftMargin,
                        TitleZero(page, y.roles.title).y - page.y.titleY);
    }
}

void GraphDrawing::DrawTitle()
{
    pdf.SetRole("title.page");
    pdf.SetFont(page.font, page.titleSize);
    const double w = WidthOf(page.title, page.titleSize);
    // Unlike in the axis titles, a given X is measured from the edge of the page.
    const double atX = page.titleIsCentred ? x.usable / 2.0 + leftMargin - w / 2.0 : page.titleX;
    pdf.SetTextPos(atX, TitleZero(page, "title.page").y - page.titleY);
    pdf.Show(page.title);
}

Message Describe(const GraphPage& page)
{
    if (page.x.type != linear || page.y.type != linear) {
        return Message("X %1, Y %2", AxisWords(page.x), AxisWords(page.y));
    }
    return Message("%1 of %2",
                   CountWords(LinesInRoom(page.x, page.frame.UsableWidth()) - 1.0,
                              LinesInRoom(page.y, page.frame.UsableHeight()) - 1.0, gridCells),
                   SizeWords(page.x.lineSpacing, page.y.lineSpacing, page.frame));
}

}  // namespace linealis
