#include "desktop/system/MetricForms.h"

#include "desktop/system/WindowSettings.h"

#include <QLocale>

namespace linealis::desktop {

namespace {

constexpr const char* metricKey = "newForms/metric";
constexpr const char* offeredKey = "newForms/metricOffered";

}  // namespace

bool PrefersMetric()
{
    return QLocale::system().measurementSystem() == QLocale::MetricSystem;
}

bool UsesMetricForms()
{
    return WindowSettings().value(QLatin1String(metricKey), false).toBool();
}

void UseMetricForms(bool on)
{
    WindowSettings().setValue(QLatin1String(metricKey), on);
}

bool TakeMetricOffer()
{
    WindowSettings settings;
    if (!PrefersMetric() || settings.value(QLatin1String(offeredKey), false).toBool()) {
        return false;
    }
    settings.setValue(QLatin1String(offeredKey), true);
    return true;
}

}  // namespace linealis::desktop
