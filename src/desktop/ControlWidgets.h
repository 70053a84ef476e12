#pragma once

#include "pipeline/Form.h"

#include <QString>
#include <functional>

class QWidget;

namespace linealis::desktop {

/// A control on the screen.
struct ControlWidget {
    QWidget* widget;
    std::function<void()> refresh;  ///< makes the widget show what the control holds
};

/// Makes the widget of a control, and the way back from what the user does to the control. The object name is the
/// control's name, and the accessible name its whole name. `onSwatch` is called when the user clicks a color
/// swatch.
ControlWidget MakeControlWidget(const Form& form, Control& control,
                                const std::function<void(Swatch& swatch)>& onSwatch);

/// A caption with the line ends of a screen.
QString CaptionText(const Control& control);

}  // namespace linealis::desktop
