#pragma once

#include "papers/CellGridWindow.h"

namespace linealis {

/// Bricks in running bond: courses whose joints stand half a brick beside those of the next.
class BrickWindow final : public CellGridWindow {
public:
    static constexpr FileType settingsType{"Setk", "setk"};

    explicit BrickWindow(Platform& thePlatform);

protected:
    void DoGraph() override;

private:
    void DrawJoint(double row, double column);
};

}  // namespace linealis
