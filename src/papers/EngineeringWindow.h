#pragma once

#include "pipeline/PaperWindow.h"

namespace linealis {

/// Engineering pad paper: a grid given in lines per unit, laid from the left and bottom margins, with a band free
/// of horizontal lines at the top and one free of vertical lines at the left.
class EngineeringWindow final : public PaperWindow {
public:
    static constexpr FileType settingsType{"Sete", "sete"};

    explicit EngineeringWindow(Platform& thePlatform);

protected:
    void ReadOwnValues() override;
    void DoGraph() override;

private:
    double LineThicknessHorz = 0.0;  ///< points; of the horizontal lines
    double LineThicknessVert = 0.0;  ///< points; of the vertical lines
};

}  // namespace linealis
