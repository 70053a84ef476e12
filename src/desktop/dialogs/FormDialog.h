#pragma once

#include "pipeline/form/Form.h"

#include <QDialog>

namespace linealis::desktop {

/// Shows a form in a dialog with OK and Cancel. Entries change the form immediately; the caller decides what
/// happens to it after Cancel.
class FormDialog final : public QDialog {
    Q_OBJECT

public:
    FormDialog(const QString& title, Form& form, QWidget* parent);

    /// Adds a widget between the form and the buttons. The dialog takes ownership.
    void AddBelow(QWidget* widget);
};

}  // namespace linealis::desktop
