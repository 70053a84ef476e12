#pragma once

#include "pipeline/form/Form.h"

#include <QDialog>

namespace linealis::desktop {

/// A dialog of a form with OK and Cancel.
class FormDialog final : public QDialog {
    Q_OBJECT

public:
    FormDialog(const QString& title, Form& form, QWidget* parent);
};

}  // namespace linealis::desktop
