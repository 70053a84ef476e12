#pragma once

#include "papers/CellGridWindow.h"

namespace linealis {

/// A small cross at every crossing of a grid, whose lines are optional.
class CrossWindow final : public CellGridWindow {
public:
    static constexpr FileType settingsType{"Setr", "setr"};

    explicit CrossWindow(Platform& thePlatform);

protected:
    void ReadOwnValues() override;
    void DoGraph() override;

private:
    double crossWeight = 0.0;  ///< points
    double crossWidth = 0.0;   ///< points; the whole horizontal bar
    double crossHeight = 0.0;  ///< points; the whole vertical bar
};

}  // namespace linealis
