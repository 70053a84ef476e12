#include "desktop/dialogs/DialogColumn.h"

#include <QDialog>
#include <QVBoxLayout>

namespace linealis::desktop {

QVBoxLayout* MakeDialogColumn(QDialog& dialog)
{
    constexpr int margin = 16, spacing = 8;  // pixels
    auto* const column = new QVBoxLayout(&dialog);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(spacing);
    return column;
}

}  // namespace linealis::desktop
