#include "desktop/form/QuickHands.h"

#include "desktop/form/FormView.h"
#include "desktop/form/QuickButton.h"
#include "desktop/system/Text.h"

namespace linealis::desktop {

namespace {

/// Adds a button after the field that fills it with the text that `suggest` returns.
void AddFill(TextField& field, FormView& view, QToolButton* button, const FillAsStep& fillAsStep,
             const std::function<std::string()>& suggest)
{
    QObject::connect(button, &QToolButton::clicked, &view, [&field, button, fillAsStep, suggest] {
        fillAsStep(button->toolTip(), [&] { field.SetText(suggest()); });
    });
    view.AddBeside(field, button);
}

}  // namespace

void AddQuickHands(Form& form, FormView& view, const FillAsStep& fillAsStep)
{
    for (Control* const control : form.Controls()) {
        if (control->Kind() != ControlKind::Text) {
            continue;
        }
        auto& field = static_cast<TextField&>(*control);
        const QString name = ToQt(field.Name());
        if (field.today) {
            QToolButton* const button =
                MakeQuickButton(ToolIcon::Today, QStringLiteral("Today") + name, Translated("Today's date"));
            AddFill(field, view, button, fillAsStep, field.today);
        } else if (field.MeansNow() == Meaning::TitlePlace) {
            QToolButton* const button = MakeQuickButton(ToolIcon::Center, QStringLiteral("Center") + name,
                                                        Translated("Title in the center"));
            AddFill(field, view, button, fillAsStep, [] { return std::string(); });
        }
    }
}

}  // namespace linealis::desktop
