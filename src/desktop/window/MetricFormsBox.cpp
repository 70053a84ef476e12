#include "desktop/window/MetricFormsBox.h"

#include "desktop/system/MetricForms.h"
#include "desktop/system/Text.h"

#include <QCheckBox>

namespace linealis::desktop {

QCheckBox* MakeMetricFormsBox()
{
    auto* const box = new QCheckBox(Translated("Use A4 and centimeters in new forms"));
    box->setObjectName(QStringLiteral("MetricForms"));
    box->setToolTip(
        Translated("Presets, files and your own defaults keep their paper. Edit > Preferences changes this"));
    box->setChecked(UsesMetricForms());
    return box;
}

}  // namespace linealis::desktop
