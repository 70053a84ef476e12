#pragma once

#include <QGroupBox>

class QLabel;

namespace linealis::desktop {

/// A group of a form. What there is to say of its fields stands in the room beside its heading, or below the fields
/// if it has none: room that is there in any case, so that nothing moves.
class FormGroup final : public QGroupBox {
    Q_OBJECT

public:
    /// `title` may be empty: then there is no frame either. `name` is the object name of what is said.
    FormGroup(const QString& title, const QString& name);

    /// Shows the remark in the color of remarks, or without one, what is known of the fields. Either may be empty.
    void Say(const QString& remark, const QString& known);

    /// The room below the fields, if what is said stands there; otherwise null. Once the fields are laid out.
    QLabel* SaidBelow() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QLabel* said;
};

/// The color of remarks: a red that stands out from the palette's background, be it light or dark.
QColor RemarkColor(const QPalette& palette);

}  // namespace linealis::desktop
