#include "desktop/dialogs/FormDialog.h"

#include "desktop/dialogs/DialogColumn.h"
#include "desktop/form/FormView.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace linealis::desktop {

FormDialog::FormDialog(const QString& title, Form& form, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(title);
    auto* const layout = MakeDialogColumn(*this);
    auto* const fields = new FormView(form, GroupBoxes::none, [](Swatch&) {});
    fields->layout()->setContentsMargins(0, 0, 0, 0);  // those of the dialog are enough
    layout->addWidget(fields);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("PushButton1"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("PushButton2"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void FormDialog::AddBelow(QWidget* widget)
{
    static_cast<QVBoxLayout*>(layout())->insertWidget(1, widget);
}

}  // namespace linealis::desktop
