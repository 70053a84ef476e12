#pragma once

#include "papers/CellGridWindow.h"

namespace linealis {

/// A round dot at every crossing of a grid, whose lines are optional.
class DotsWindow final : public CellGridWindow {
public:
    static constexpr FileType settingsType{"Setd", "setd"};

    explicit DotsWindow(Platform& thePlatform);

protected:
    void ReadOwnValues() override;
    void DoGraph() override;

private:
    double dotWeight = 0.0;  ///< points; the diameter of a dot
};

}  // namespace linealis
