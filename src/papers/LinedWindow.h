#pragma once

#include "pipeline/PaperWindow.h"

namespace linealis {

/// Ruled writing paper: horizontal lines from the bottom margin upwards, and a vertical rule.
class LinedWindow final : public PaperWindow {
public:
    static constexpr FileType settingsType{"Setl", "setl"};

    explicit LinedWindow(Platform& thePlatform);

protected:
    void ReadOwnValues() override;
    void DoGraph() override;

private:
    double LineThicknessHorz = 0.0;  ///< points; of the vertical rule
    double LineThicknessVert = 0.0;  ///< points; of the ruled lines
};

}  // namespace linealis
