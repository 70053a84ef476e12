#include "desktop/window/MetricFormsBox.h"

#include "desktop/system/MetricForms.h"

#include <QCheckBox>
#include <QCoreApplication>

namespace linealis::desktop {

QCheckBox* MakeMetricFormsBox()
{
    const auto text = [](const char* english) { return QCoreApplication::translate("MetricFormsBox", english); };
    auto* const box = new QCheckBox(text("Use A4 and centimeters in new forms"));
    box->setObjectName(QStringLiteral("MetricForms"));
    box->setToolTip(text("Presets, files and your own defaults keep their paper. Edit > Preferences changes this"));
    box->setChecked(UsesMetricForms());
    return box;
}

}  // namespace linealis::desktop
