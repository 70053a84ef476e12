#pragma once

#include "pdf/Units.h"
#include "platform/Color.h"

#include <cstdint>
#include <optional>

namespace linealis {

/// A paper size in points.
struct PaperSize {
    std::int64_t width;
    std::int64_t height;
};

/// The paper of a page and its margins, in points.
struct PageSetup {
    std::int64_t paperWidth = 0;
    std::int64_t paperHeight = 0;
    double unitPixels = 0.0;  ///< points per unit of length
    double leftMargin = 0.0;
    double rightMargin = 0.0;
    double topMargin = 0.0;
    double bottomMargin = 0.0;

    bool IsInInches() const { return unitPixels == pointsPerInch; }

    /// The room between the margins, in points. Not positive if the margins leave no room.
    double UsableWidth() const { return static_cast<double>(paperWidth) - leftMargin - rightMargin; }
    double UsableHeight() const { return static_cast<double>(paperHeight) - topMargin - bottomMargin; }
};

/// The properties that every page starts with. No side of the paper is below smallestPage.
struct PageFrame : PageSetup {
    double xScale = 1.0;
    double yScale = 1.0;
    Color background = white;
    std::optional<Color> lineColor = {};  ///< none: the kind sets its own colors

    /// Where the margins end on the paper, in points from its lower left corner. The scale of the page moves them.
    double LeftEdge() const { return leftMargin * xScale; }
    double RightEdge() const { return (static_cast<double>(paperWidth) - rightMargin) * xScale; }
    double BottomEdge() const { return bottomMargin * yScale; }
    double TopEdge() const { return (static_cast<double>(paperHeight) - topMargin) * yScale; }
};

}  // namespace linealis
