#pragma once

#include <QGroupBox>

class QGridLayout;
class QLabel;

namespace linealis::desktop {

/// A group of a form: a heading in bold, with what there is to say of the fields beside it, and the fields below. A
/// group without a heading says it below the fields. The room for it is always there, so that nothing moves.
class FormGroup final : public QGroupBox {
    Q_OBJECT

public:
    /// `heading` may be empty. `name` is the object name of what is said; a group without one says nothing.
    FormGroup(const QString& heading, const QString& name);

    QGridLayout& Fields() const { return *fields; }

    /// Shows the remark in the color of remarks, or without one, what is known of the fields. Either may be empty.
    void Say(const QString& remark, const QString& known);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* said;
    QGridLayout* fields;
};

/// The color of remarks: a red that stands out from the background of the palette, light or dark.
QColor RemarkColor(const QPalette& palette);

/// The color of units and readouts: weaker than text, with a contrast of at least 4.5 to the background.
QColor WeakColor(const QPalette& palette);

}  // namespace linealis::desktop
