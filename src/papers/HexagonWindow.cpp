#include "papers/HexagonWindow.h"

#include "pdf/Numbers.h"

#include <cmath>

namespace linealis {

namespace {

const ControlTable& OwnControls()
{
    static const ControlTable table =
        CellSizeControls({textField("EditLineThickness", "Line Weight:", ".3").Means(Meaning::Weight),
                          textField("EditMinorLineThickness", "Minor Line Weight:", ".15").Means(Meaning::Weight)},
                         {});
    return table;
}

const SettingsTable& Settings()
{
    static const SettingsTable table = CellSizeSettings({});
    return table;
}

}  // namespace

HexagonWindow::HexagonWindow(Platform& thePlatform)
    : CellSizeWindow(thePlatform, OwnControls(), Settings(), settingsType)
{}

void HexagonWindow::DoGraph()
{
    MeasureUsableArea();
    MeasureCells();
    const bool canFit = side > 0.0;  // a size of 0 or less has nothing to fit
    if (canFit) {
        FitAcross();
        FitUp();
    }
    pdf.SetLineWidth(minorLineThickness);
    DrawFrame();
    pdf.SetLineWidth(LineThickness);
    if (canFit && numAcross >= 1.0) {
        DrawHexagons();
        DrawJoiningLines();
    }
}

void HexagonWindow::MeasureCells()
{
    const double size = form.Number("EditSize");
    side = size * unitPixels;
    doubleSide = (2.0 * size) * unitPixels;
    cellHeight = (size * (2.0 * std::sqrt(0.75))) * unitPixels;
}

void HexagonWindow::FitAcross()
{
    numAcross = 1.0;
    double x = doubleSide;
    while (usableWidth >= x) {
        numAcross += 1.0;
        x = x + 1.5 * side;
        RuntimeBackgroundTask();
    }
    numAcross -= 1.0;
    x = x - 1.5 * side;
    const double halfRest = (usableWidth - x) / 2.0;
    usableWidth = x;
    leftMargin = leftMargin + halfRest;
    rightMargin = rightMargin + halfRest;
}

void HexagonWindow::FitUp()
{
    numberVertical = static_cast<double>(truncated(usableHeight / cellHeight));
    const double gridHeight = cellHeight * numberVertical;
    const double halfRest = (usableHeight - gridHeight) / 2.0;
    topMargin = topMargin + halfRest;
    bottomMargin = bottomMargin + halfRest;
    usableHeight = gridHeight;
}

void HexagonWindow::Clip(double x1, double y1, double x2, double y2)
{
    pdf.ClipLine(x1, y1, x2, y2, leftMargin, bottomMargin, usableWidth, usableHeight);
}

void HexagonWindow::DrawHexagons()
{
    double yOff = 0.0;
    for (double row = 0.0; row < numberVertical; row += 1.0) {
        // A column here is two of the fitting, so the later ones lie outside and draw nothing.
        for (double column = 0.0; column < numAcross; column += 1.0) {
            const double x = (side / 2.0 + column * doubleSide) + side * column;
            if (usableWidth >= x) {
                DrawHexagon(leftMargin + x, bottomMargin + yOff);
            }
            RuntimeBackgroundTask();
        }
        yOff = yOff + cellHeight;
    }
}

void HexagonWindow::DrawHexagon(double x, double y)
{
    const double right = x + side;
    const double middle = y + cellHeight / 2.0;
    const double top = y + cellHeight;
    const double farLeft = x - side / 2.0;
    const double farRight = x + (side * 3.0) / 2.0;
    Clip(x, y, right, y);
    Clip(x, y, farLeft, middle);
    Clip(farLeft, middle, x, top);
    Clip(right, y, farRight, middle);
    Clip(farRight, middle, right, top);
    Clip(x, top, right, top);
}

void HexagonWindow::DrawJoiningLines()
{
    double yOff = 0.0;
    for (double row = 0.0; row < numberVertical; row += 1.0) {
        for (double column = 0.0; column < numAcross; column += 1.0) {
            const double x = (column + 1.0) * doubleSide + column * side;
            if (usableWidth >= x) {
                const double y = bottomMargin + yOff + cellHeight / 2.0;
                Clip(leftMargin + x, y, leftMargin + x + side, y);
            }
            RuntimeBackgroundTask();
        }
        yOff = yOff + cellHeight;
    }
}

}  // namespace linealis
