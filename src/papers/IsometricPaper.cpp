#include "papers/IsometricPaper.h"

#include "pdf/Units.h"
#include "pipeline/page/Fitting.h"
#include "pipeline/page/PageWords.h"

namespace linealis {

namespace {

constexpr Role verticalRole = "grid.vertical", risingRole = "grid.rising", fallingRole = "grid.falling";

// Draws a page of isometric paper. The slope of 30 degrees is computed from cosine and sine, never from a tangent,
// which would differ in the last bit. Every loop ends if the size is too small to move the position.
class IsometricDrawing {
public:
    IsometricDrawing(const IsometricPage& page, MyPDFGenerator& thePdf, Turns& theTurns)
        : size(page.size), area(UsableArea(page.frame)), pdf(thePdf), turns(theTurns)
    {}

    /// Draws the vertical lines, and the rising lines that start at the bottom edge, one at every other vertical
    /// line.
    void DrawFromBottomEdge();
    void DrawRisingFromLeftEdge();
    void DrawFallingFromLeftAndTopEdge();

private:
    /// Draws a line of the pattern. Coordinates are in points from the lower left corner of the usable area.
    void DrawLine(Role role, double x1, double y1, double x2, double y2);
    /// Draws the falling lines that start at the left edge. Returns the height at which the last one ends at the
    /// right edge; 0 if it ends at the bottom edge or there is none.
    double DrawFallingFromLeftEdge();
    /// Draws the falling lines from the top edge to the right edge, which they meet at the height `y` and above.
    void DrawFallingFromTopEdge(double y);

    double size;
    Area area;
    MyPDFGenerator& pdf;
    Turns& turns;
    const double usableWidth = area.width;
    const double usableHeight = area.height;
};

void IsometricDrawing::DrawLine(Role role, double x1, double y1, double x2, double y2)
{
    pdf.SetRole(role);
    pdf.StrokeLine(area.left + x1, area.bottom + y1, area.left + x2, area.bottom + y2);
    turns.RuntimeBackgroundTask();
}

void IsometricDrawing::DrawFromBottomEdge()
{
    const double step = cosine30 * size;
    double x = 0.0;
    while (usableWidth > x) {
        // Not limited at the top: on a page that is much wider than high, the line ends above the usable area.
        DrawLine(risingRole, x, 0.0, usableWidth, ((usableWidth - x) * sine30) / cosine30);
        DrawLine(verticalRole, x, 0.0, x, usableHeight);
        if (!Advances(x, step)) {
            break;
        }
        x = step + x;
        if (usableWidth > x) {
            DrawLine(verticalRole, x, 0.0, x, usableHeight);
        }
        x = step + x;
    }
}

void IsometricDrawing::DrawRisingFromLeftEdge()
{
    double y = size;
    while (usableHeight > y) {
        double xEnd = usableWidth;
        double yEnd = (usableWidth * sine30) / cosine30 + y;
        if (yEnd > usableHeight) {
            yEnd = usableHeight;
            xEnd = ((usableHeight - y) * cosine30) / sine30;
        }
        DrawLine(risingRole, 0.0, y, xEnd, yEnd);
        if (!Advances(y, size)) {
            break;
        }
        y = y + size;
    }
}

void IsometricDrawing::DrawFallingFromLeftAndTopEdge()
{
    // The family continues from the top edge with the same spacing along the right edge.
    DrawFallingFromTopEdge(DrawFallingFromLeftEdge() + size);
}

double IsometricDrawing::DrawFallingFromLeftEdge()
{
    double y = 0.0;
    double yEnd = 0.0;
    while (usableHeight > y) {
        double xEnd = (y * cosine30) * 2.0;
        yEnd = 0.0;
        if (xEnd > usableWidth) {
            yEnd = 0.0 + ((xEnd - usableWidth) / cosine30) / 2.0;
            xEnd = usableWidth;
        }
        DrawLine(fallingRole, 0.0, y, xEnd, yEnd);
        if (!Advances(y, size)) {
            break;
        }
        y = y + size;
    }
    return yEnd;
}

void IsometricDrawing::DrawFallingFromTopEdge(double y)
{
    while (usableHeight > y) {
        const double d = ((usableHeight - y) * cosine30) * 2.0;
        pdf.StrokeLine(area.left + usableWidth, area.bottom + y, area.left + usableWidth - d,
                       area.bottom + usableHeight);
        turns.RuntimeBackgroundTask();
        if (!Advances(y, size)) {
            break;
        }
        y = y + size;
    }
}

}  // namespace

SettingsTable Settings(IsometricForm& form)
{
    return CellSizeSettings(form, form.cell, form.outline);
}

IsometricPage Read(const IsometricForm& form)
{
    const PageFrame frame = form.ReadFrame(form.outline.BackgroundColorCanvas, &form.outline.LineColorCanvas);
    return {frame, form.cell.EditSize.Used() * frame.unitPixels, form.cell.EditLineThickness.Used(),
            form.outline.CheckBoxFrame.Value()};
}

void Draw(const IsometricPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    pdf.SetLineWidth(page.LineThickness);
    if (page.drawsFrame) {
        DrawFrame(UsableArea(page.frame), pdf);
    }
    if (page.size > 0.0) {
        IsometricDrawing drawing(page, pdf, turns);
        drawing.DrawFromBottomEdge();
        drawing.DrawRisingFromLeftEdge();
        drawing.DrawFallingFromLeftAndTopEdge();
    }
}

Message Describe(const IsometricPage& page)
{
    return Message("triangles with sides of %1", LengthWords(page.size, page.frame));
}

}  // namespace linealis
