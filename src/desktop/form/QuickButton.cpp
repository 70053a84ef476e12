#include "desktop/form/QuickButton.h"

namespace linealis::desktop {

QToolButton* MakeQuickButton(ToolIcon icon, const QString& name, const QString& tip)
{
    auto* const button = new QToolButton;
    button->setIcon(MakeToolIcon(icon));
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

}  // namespace linealis::desktop
