#pragma once

#include <QString>
#include <functional>

namespace linealis {
class Form;
}

namespace linealis::desktop {

class FormView;

/// Performs `fill`, which changes fields, as one step of that name.
using FillAsStep = std::function<void(const QString& step, const std::function<void()>& fill)>;

/// Adds small buttons beside fields whose usual value takes one click: today's date, and the center of the page for
/// a title. `view` must show the form.
void AddQuickHands(Form& form, FormView& view, const FillAsStep& fillAsStep);

}  // namespace linealis::desktop
