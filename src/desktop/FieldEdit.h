#pragma once

#include "pipeline/Form.h"

#include <QLineEdit>

namespace linealis::desktop {

/// The text of a field. Up and Down step a number, PageUp and PageDown ten times as far. A length that was typed
/// with a unit or as a fraction becomes one of the form's unit when the field is left; until then the page takes
/// the text as it stands.
class FieldEdit final : public QLineEdit {
    Q_OBJECT

public:
    /// `theForm` tells the unit of lengths.
    FieldEdit(TextField& theField, const Form& theForm);

    /// Shows what the field holds.
    void Refresh();
    /// Frames the field in the color of remarks, which changes none of its measures.
    void Mark(bool isRemarkedOn);
    /// Ends the entry as leaving the field does.
    void Finish();

signals:
    /// The user has left the field, or pressed Return in it, and it is no longer what it was.
    void Committed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Step(double steps);

    TextField& field;
    const Form& form;
    bool isMarked = false;
};

}  // namespace linealis::desktop
