#pragma once

class QCheckBox;

namespace linealis::desktop {

/// Returns a new check box for the choice of UsesMetricForms, which it shows. The caller stores it.
QCheckBox* MakeMetricFormsBox();

}  // namespace linealis::desktop
