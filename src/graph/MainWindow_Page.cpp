#include "graph/MainWindow.h"

#include "pdf/Numbers.h"

namespace linealis {

void MainWindow::DoGraph()
{
    fonthandle = form.ListIndex("PopupFont1") + 1;
    pdf.SetFont(fonthandle, 10.0);
    MeasureUsableArea();
    MeasureGrid(xAxis);
    MeasureGrid(yAxis);
    PlotAxesThatFillTheRoom();
    // From here on the usable area is the grid, which stands at the lower left of the room.
    usableWidth = xAxis.graphSize;
    usableHeight = yAxis.graphSize;
    PlotAxesThatFillTheGrid();

    pdf.SetRGBColor(0.0, 0.0, 0.0);
    FindZero(xAxis);
    FindZero(yAxis);
    if (form.Value("CheckBoxMarkers")) {
        PlotMarkers();
    }
    if (form.Value("CheckBoxShowAxes")) {
        DrawAxes();
    }
    DrawTitle();
}

void MainWindow::MeasureGrid(Axis& axis)
{
    axis.numLines = static_cast<double>(truncated(Usable(axis) / axis.lineSpacing)) + 1.0;
    axis.graphSize = static_cast<double>(truncated((axis.numLines - 1.0) * axis.lineSpacing));
}

void MainWindow::PlotAxesThatFillTheRoom()
{
    if (xAxis.type == hydraulic) {
        PlotHydraulicAxis(xAxis);
    }
    if (yAxis.type == hydraulic) {
        PlotHydraulicAxis(yAxis);
    }
    if (yAxis.type == probability) {
        PlotProbabilityYAxis();
    }
}

void MainWindow::PlotAxesThatFillTheGrid()
{
    for (const Axis* const axis : {&xAxis, &yAxis}) {
        if (axis->type == linear) {
            PlotLinearAxis(*axis);
        } else if (axis->IsLog()) {
            PlotLogAxis(*axis);
        }
    }
}

void MainWindow::FindZero(Axis& axis) const
{
    axis.zero = (-form.Number(axis.controls.minimum)) * axis.lineSpacing / axis.step;
    if (axis.zero < 0.0) {
        axis.zero = 0.0;
    }
}

void MainWindow::DrawGridLine(const Axis& axis, double position, double end)
{
    if (axis.IsX()) {
        StrokeLine(position, bottomMargin, position, end);
    } else {
        StrokeLine(leftMargin, position, end, position);
    }
    RuntimeBackgroundTask();
}

double MainWindow::GridEnd(const Axis& axis) const
{
    return Across(axis).graphSize + Origin(Across(axis));
}

void MainWindow::SetMinorStyle(const Axis& axis)
{
    pdf.SetLineWidth(axis.lineThickness);
    pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
}

void MainWindow::SetMajorStyle(const Axis& axis)
{
    pdf.SetLineWidth(axis.majorWeight);
    pdf.SetRGBColor(form.ColorOf("MajorLineColorCanvas"));
}

double MainWindow::WidthOf(std::string_view text, double size) const
{
    return MyPDFGenerator::StringWidth(text, fonthandle, truncated(size));
}

void MainWindow::DrawAxes()
{
    // An axis that is not linear has no zero to stand at: its line stands at the edge of the graph.
    if (xAxis.type > linear) {
        xAxis.zero = 0.0;
    }
    if (yAxis.type > linear) {
        yAxis.zero = 0.0;
    }
    DrawAxisLines();
    for (const Axis* const axis : {&xAxis, &yAxis}) {
        if (axis->type == linear) {
            DrawLinearNumbers(*axis);
        }
    }
    DrawXAxisTitle();
    DrawYAxisTitle();
}

void MainWindow::DrawAxisLines()
{
    // The weight of the horizontal line is that of the Y row, and the other way round: existing forms have it so.
    pdf.SetLineWidth(form.Number(yControls.weight));
    const double y = yAxis.zero + bottomMargin;
    StrokeLine(leftMargin, y, xAxis.graphSize + leftMargin, y);
    pdf.SetLineWidth(form.Number(xControls.weight));
    const double x = xAxis.zero + leftMargin;
    StrokeLine(x, bottomMargin, x, yAxis.graphSize + bottomMargin);
}

void MainWindow::DrawXAxisTitle()
{
    const std::string& title = form.Text(xControls.title);
    const double size = form.Number(xControls.titleTextSize);
    pdf.SetFont(fonthandle, size);
    const double w = WidthOf(title, size);
    if (form.Value(xControls.autoPosition)) {
        pdf.SetTextPos(static_cast<double>(truncated(usableWidth / 2.0 + leftMargin - w / 2.0)),
                       static_cast<double>(truncated(bottomMargin + yAxis.zero - 25.0)));
    } else {
        pdf.SetTextPos(form.Number(xControls.titleX) * unitPixels + leftMargin,
                       topMargin + bottomMargin + usableHeight - form.Number(xControls.titleY) * unitPixels);
    }
    pdf.Show(title);
}

void MainWindow::DrawYAxisTitle()
{
    const std::string& title = form.Text(yControls.title);
    const double size = form.Number(yControls.titleTextSize);
    pdf.SetFont(fonthandle, size);
    const double w = WidthOf(title, size);
    pdf.SetTextPos(0.0, 0.0);
    constexpr double upwards = 90.0;
    if (form.Value(yControls.autoPosition)) {
        pdf.ShowRotated(title, upwards, static_cast<double>(truncated(leftMargin + xAxis.zero - 25.0)),
                        static_cast<double>(truncated(usableHeight / 2.0 + bottomMargin - w / 2.0)));
    } else {
        pdf.ShowRotated(title, upwards, form.Number(yControls.titleX) * unitPixels + leftMargin,
                        topMargin + bottomMargin + usableHeight - form.Number(yControls.titleY) * unitPixels);
    }
}

void MainWindow::DrawTitle()
{
    const std::string& title = form.Text("EditTitle");
    const double size = form.Number("EditTitleSize");
    pdf.SetFont(fonthandle, size);
    const double w = WidthOf(title, size);
    const double y = topMargin + bottomMargin + usableHeight - form.Number("EditTitleY") * unitPixels;
    // Unlike those of the axis titles, a given X counts from the edge of the page.
    const double x = form.Text("EditTitleX").empty() ? usableWidth / 2.0 + leftMargin - w / 2.0
                                                     : form.Number("EditTitleX") * unitPixels;
    pdf.SetTextPos(x, y);
    pdf.Show(title);
}

}  // namespace linealis
