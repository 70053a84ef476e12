#pragma once

#include "pdf/Geometry.h"
#include "pipeline/PaperWindow.h"

#include <cstdint>
#include <string>

namespace linealis {

/// An equilateral triangle, divided by lines parallel to its sides, with numbers along the sides or inside.
class TernaryWindow final : public PaperWindow {
public:
    static constexpr FileType settingsType{"Sety", "sety"};

    explicit TernaryWindow(Platform& thePlatform);

protected:
    void ReadOwnValues() override;
    void DoGraph() override;

private:
    void PopupScaling_Change();

    void MeasureTriangle();
    void DrawTriangle();
    void DrawMajorLines();
    void DrawMinorLines();
    void DrawMinorLinesOf(double i);
    void DrawNumbersInside();
    void DrawNumberOnHorizontal(double i);
    void DrawNumberOnSlant(Point place, const std::string& text, double boxAngle, double textAngle, Point offset);
    void DrawNumbersOnSides();

    /// How far along a side, in points, the division `i` stands.
    double Along(double i) const;
    /// How high above the bottom side the division `i` stands.
    double Up(double i) const;
    /// The number at the division `k` of an axis.
    std::string NumberAt(double k) const;
    double WidthOf(const std::string& text) const;

    double LineThickness = 0.0;       ///< points
    double minorLineThickness = 0.0;  ///< points
    std::int64_t majorDivisions = 0;
    std::int64_t minorDivisions = 0;
    double axisMaximum = 0.0;
    std::int64_t fonthandle = 0;
    double side = 0.0;  ///< points, like all below
    double centerX = 0.0;
    double leftX = 0.0;
    double rightX = 0.0;
    double bottomY = 0.0;
    double topY = 0.0;
};

}  // namespace linealis
