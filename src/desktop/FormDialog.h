#pragma once

#include "pipeline/PaperForm.h"

#include <QDialog>

namespace linealis::desktop {

/// A dialog of a form with OK and Cancel.
class FormDialog final : public QDialog {
    Q_OBJECT

public:
    FormDialog(const QString& title, PaperForm& form, QWidget* parent);
};

}  // namespace linealis::desktop
