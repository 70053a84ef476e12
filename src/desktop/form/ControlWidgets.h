#pragma once

#include "pipeline/form/Form.h"

#include <QString>
#include <functional>

class QWidget;

namespace linealis::desktop {

/// The widget of a control.
struct ControlWidget {
    QWidget* widget;
    std::function<void()> refresh;  ///< updates the widget from the control
};

/// The functions that widgets call.
struct ControlEvents {
    std::function<void(Swatch& swatch)> onSwatch;  ///< called when the user clicks a color swatch
    /// Called when the user has finished a change. The control already has the new value.
    std::function<void(const Control& control)> onCommitted;
};

/// Makes the widget of a control. The control takes over every change of the widget, whether it comes from a key,
/// a click, or another program such as a screen reader. The object name of the widget is the control's name; its
/// accessible name is the control's whole name (see WholeName). The form and the control must outlive the widget.
ControlWidget MakeControlWidget(const Form& form, Control& control, const ControlEvents& events);

/// Returns the caption with line feeds instead of the carriage returns that forms use.
QString CaptionText(const Control& control);

}  // namespace linealis::desktop
