#pragma once

#include <QGroupBox>

class QGridLayout;
class QHBoxLayout;
class QLabel;

namespace linealis::desktop {

/// Shows a group of a form: a bold heading with the remarks next to it, and the fields below. A group without a
/// heading shows the remarks below the fields. The space for remarks is always reserved, so that nothing moves
/// when one appears.
class FormGroup final : public QGroupBox {
    Q_OBJECT

public:
    /// `heading` may be empty. `name` is the object name of the label for remarks. If both are empty, the group
    /// shows no remarks.
    FormGroup(const QString& heading, const QString& name);

    QGridLayout& Fields() const { return *fields; }

    /// Adds a widget directly after the heading, which must not be empty.
    void AddToHeading(QWidget* widget);

    /// Shows the remark in the color of remarks. If it is empty, shows `known`, a fact about the fields, in the
    /// weak color. Both may be empty.
    void Say(const QString& remark, const QString& known);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QLabel* said;
    QGridLayout* fields;
    QHBoxLayout* head = nullptr;  ///< the heading and the remarks; null without a heading
};

/// Returns the color of remarks: a red that stands out from the palette's background, light or dark.
QColor RemarkColor(const QPalette& palette);

/// Returns the color of units and readouts: the text color mixed with the background. Black text on white, or the
/// reverse, keeps a contrast of at least 4.5.
QColor WeakColor(const QPalette& palette);

}  // namespace linealis::desktop
