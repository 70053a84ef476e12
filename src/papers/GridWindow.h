#pragma once

#include "papers/CellGridWindow.h"

namespace linealis {

/// A grid of horizontal and vertical lines.
class GridWindow final : public CellGridWindow {
public:
    static constexpr FileType settingsType{"Setx", "setx"};

    explicit GridWindow(Platform& thePlatform);

protected:
    void DoGraph() override;
};

}  // namespace linealis
