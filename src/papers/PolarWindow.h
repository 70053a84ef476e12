#pragma once

#include "pipeline/PaperWindow.h"

#include <cstdint>
#include <string>

namespace linealis {

/// Circles about a centre, crossed by major spokes with labels at their ends and by minor spokes, with a title.
class PolarWindow final : public PaperWindow {
public:
    static constexpr FileType settingsType{"Setp", "setp"};

    explicit PolarWindow(Platform& thePlatform);

protected:
    void ReadOwnValues() override;
    void DoGraph() override;

private:
    void Measure();
    void DrawCircles();
    void DrawSpokes();
    void DrawMinorSpokes();
    void DrawTitle();
    void DrawSpoke(double angle, double fromRadius);
    void DrawLabel(const std::string& text, double angle);
    std::string LabelOf(double spoke, double angle, std::int64_t numSpokes) const;
    std::int64_t WholeNumber(std::string_view field) const;

    double LineThickness = 0.0;       ///< points
    double minorLineThickness = 0.0;  ///< points; of the minor spokes
    std::int64_t fonthandle = 0;
    std::int64_t numCircles = 0;
    double outerRadius = 0.0;  ///< points, like the centre
    double centerX = 0.0;
    double centerY = 0.0;
};

}  // namespace linealis
