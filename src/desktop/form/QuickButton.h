#pragma once

#include "desktop/form/ToolIcon.h"

#include <QToolButton>

namespace linealis::desktop {

/// Returns a small, quiet button beside a field. Tab skips it, so that it does not lie between two fields. `tip`
/// also names it for users who cannot see it.
QToolButton* MakeQuickButton(ToolIcon icon, const QString& name, const QString& tip);

}  // namespace linealis::desktop
