#pragma once

namespace linealis::desktop {

/// Whether the user's system uses metric units, so that A4 presets come first.
bool PrefersMetric();

/// Whether new forms start with A4 paper and centimeters. Only the desktop program uses this, and stores it with
/// its windows: files, presets and pages do not depend on it.
bool UsesMetricForms();

/// Stores the choice for all windows that are opened from now on.
void UseMetricForms(bool on);

/// Whether the choice should be offered: the user's system uses metric units, and it has not been offered before.
/// After the first call, returns false, in later runs of the program too.
bool TakeMetricOffer();

}  // namespace linealis::desktop
