#include "pipeline/SettingsTable.h"

namespace linealis::settings {

SettingsTable Head()
{
    return {fixed("1.3.0"),
            popup("PopupOrientation"),
            popup("PopupPaperSize"),
            fixed("0"),
            fixed("0"),
            popup("PopupUnits"),
            sizeMarker(),
            text("EditXScale"),
            text("EditYScale")};
}

SettingsTable Margins()
{
    return {text("EditTopMargin"), text("EditBottomMargin"), text("EditLeftMargin"), text("EditRightMargin")};
}

SettingsTable Concatenate(std::initializer_list<SettingsTable> parts)
{
    SettingsTable whole;
    for (const SettingsTable& part : parts) {
        whole.insert(whole.end(), part.begin(), part.end());
    }
    return whole;
}

}  // namespace linealis::settings
