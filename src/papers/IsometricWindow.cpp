#include "papers/IsometricWindow.h"

#include "pipeline/Fitting.h"

#include <cmath>

namespace linealis {

namespace {

// The slope of 30 degrees, as cosine and sine. Never as a tangent, which would differ in the last bit.
const double cosine = std::sqrt(0.75);
constexpr double sine = 0.5;

const ControlTable& OwnControls()
{
    static const ControlTable table =
        CellSizeControls({textField("EditLineThickness", "Line Weight:", ".15").Means(Meaning::Weight)}, {});
    return table;
}

const SettingsTable& Settings()
{
    static const SettingsTable table = CellSizeSettings({});
    return table;
}

}  // namespace

IsometricWindow::IsometricWindow(Platform& thePlatform)
    : CellSizeWindow(thePlatform, OwnControls(), Settings(), settingsType)
{}

void IsometricWindow::DrawLine(double x1, double y1, double x2, double y2)
{
    StrokeLine(leftMargin + x1, bottomMargin + y1, leftMargin + x2, bottomMargin + y2);
    RuntimeBackgroundTask();
}

void IsometricWindow::DoGraph()
{
    MeasureUsableArea();
    pdf.SetLineWidth(LineThickness);
    DrawFrame();
    const double size = CellSize();
    if (size > 0.0) {
        DrawFromBottomEdge(size);
        DrawRisingFromLeftEdge(size);
        DrawFallingFromLeftAndTopEdge(size);
    }
}

void IsometricWindow::DrawFromBottomEdge(double size)
{
    const double step = cosine * size;
    double x = 0.0;
    while (usableWidth > x) {
        // Not limited at the top: on a paper much wider than high it ends above the usable area.
        DrawLine(x, 0.0, usableWidth, ((usableWidth - x) * sine) / cosine);
        DrawLine(x, 0.0, x, usableHeight);
        if (!Advances(x, step)) {
            break;
        }
        x = step + x;
        if (usableWidth > x) {
            DrawLine(x, 0.0, x, usableHeight);
        }
        x = step + x;
    }
}

void IsometricWindow::DrawRisingFromLeftEdge(double size)
{
    double y = size;
    while (usableHeight > y) {
        double xEnd = usableWidth;
        double yEnd = (usableWidth * sine) / cosine + y;
        if (yEnd > usableHeight) {
            yEnd = usableHeight;
            xEnd = ((usableHeight - y) * cosine) / sine;
        }
        DrawLine(0.0, y, xEnd, yEnd);
        if (!Advances(y, size)) {
            break;
        }
        y = y + size;
    }
}

void IsometricWindow::DrawFallingFromLeftAndTopEdge(double size)
{
    double y = 0.0;
    double yEnd = 0.0;
    while (usableHeight > y) {
        double xEnd = (y * cosine) * 2.0;
        yEnd = 0.0;
        if (xEnd > usableWidth) {
            yEnd = 0.0 + ((xEnd - usableWidth) / cosine) / 2.0;
            xEnd = usableWidth;
        }
        DrawLine(0.0, y, xEnd, yEnd);
        if (!Advances(y, size)) {
            break;
        }
        y = y + size;
    }
    // The same family goes on from the top edge, at the same spacing along the right edge.
    y = yEnd + size;
    while (usableHeight > y) {
        const double d = ((usableHeight - y) * cosine) * 2.0;
        StrokeLine(leftMargin + usableWidth, bottomMargin + y, leftMargin + usableWidth - d,
                   bottomMargin + usableHeight);
        RuntimeBackgroundTask();
        if (!Advances(y, size)) {
            break;
        }
        y = y + size;
    }
}

}  // namespace linealis
