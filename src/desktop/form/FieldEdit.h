#pragma once

#include "pipeline/form/Form.h"

#include <QBasicTimer>
#include <QLineEdit>

namespace linealis::desktop {

/// Edits a text field. Up and Down, or two small arrows at the end of the field, step a number; PageUp and PageDown
/// step it ten times as far. A number typed as a fraction or with a unit is converted to the unit of the field when
/// the user leaves it; until then, the page uses the text as typed.
class FieldEdit final : public QLineEdit {
    Q_OBJECT

public:
    /// `theForm` determines the unit of lengths. Both must outlive the widget.
    FieldEdit(TextField& theField, const Form& theForm);

    /// Makes the field wide enough for that many characters of average width.
    void ShowCharacters(int characters);
    /// Updates the text and the hint from the field.
    void Refresh();
    /// Adds or removes a frame in the color of remarks. The frame does not change the size of the field.
    void Mark(bool isRemarkedOn);
    /// Finishes the entry as if the user left the field: converts the text and emits Committed. Does nothing if
    /// nothing was entered.
    void Finish();

signals:
    /// Emitted when an entry is finished: when the user leaves the field or presses Return in it, or immediately
    /// if the field does not have the focus.
    void Committed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    /// Whether the field has arrows.
    bool HasArrows() const;
    /// The width of the arrows in pixels.
    int ArrowWidth() const;
    /// Returns the direction of the arrow at that position: 1 for up, -1 for down, 0 if there is none.
    double ArrowAt(QPoint position) const;
    void PaintArrows(QPainter& painter) const;
    /// Passes the text to the field of the form.
    void Take(const QString& entered);
    /// Steps the number (see Stepped), backward if `steps` is negative.
    void Step(double steps);

    TextField& field;
    const Form& form;
    bool isMarked = false;
    bool isEntered = false;  ///< whether the text has changed since the last Finish
    double pressed = 0.0;    ///< the direction of the arrow that is held down; 0 if there is none
    QBasicTimer repetition;  ///< of the step while an arrow is held down
};

}  // namespace linealis::desktop
