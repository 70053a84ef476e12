#pragma once

#include "pipeline/form/Form.h"

#include <QString>
#include <functional>

class QWidget;

namespace linealis::desktop {

/// A control on the screen.
struct ControlWidget {
    QWidget* widget;
    std::function<void()> refresh;  ///< makes the widget show what the control holds
};

/// What widgets tell of.
struct ControlEvents {
    std::function<void(Swatch& swatch)> onSwatch;  ///< a color swatch is clicked
    /// The user has ended a change of the control, which has the new value.
    std::function<void(const Control& control)> onCommitted;
};

/// Makes the widget of a control. The control follows whatever the widget shows, be it by a key, a click or another
/// program, such as a screen reader. The object name is the control's name, and the accessible name its whole name.
ControlWidget MakeControlWidget(const Form& form, Control& control, const ControlEvents& events);

/// A caption with the line ends of a screen.
QString CaptionText(const Control& control);

}  // namespace linealis::desktop
