#pragma once

#include "pipeline/form/Form.h"

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

    /// Makes the field as wide as so many characters of middle width.
    void ShowCharacters(int characters);
    /// Shows what the field holds.
    void Refresh();
    /// Frames the field in the color of remarks, which changes none of its measures.
    void Mark(bool isRemarkedOn);
    /// Ends the entry as leaving the field does.
    void Finish();

signals:
    /// A text has been entered: by a user who has left the field or pressed Return in it, or at once without the
    /// focus.
    void Committed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Take(const QString& entered);
    void Step(double steps);

    TextField& field;
    const Form& form;
    bool isMarked = false;
    bool isEntered = false;  ///< something that is not finished
};

}  // namespace linealis::desktop
