#pragma once

#include "desktop/form/ControlWidgets.h"
#include "pipeline/form/Form.h"

#include <QWidget>
#include <functional>
#include <map>
#include <vector>

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace linealis::desktop {

class FormGroup;
class FormRows;

/// Whether the groups of a form stand in boxes with a heading, as on a paper's window, or without, as in a dialog.
enum class GroupBoxes { withHeading, none };

/// A form on the screen: the widgets of its controls, in their groups, and the remarks on its fields. A widget's
/// object name is its control's name.
class FormView final : public QWidget {
    Q_OBJECT

public:
    /// `onSwatch` is called when the user clicks a color swatch.
    FormView(Form& theForm, GroupBoxes groupBoxes, std::function<void(Swatch& swatch)> onSwatch,
             QWidget* parent = nullptr);
    ~FormView() override;
    FormView(const FormView&) = delete;
    FormView& operator=(const FormView&) = delete;

    /// Hands over the last group, to stand elsewhere in the window. It still shows its controls.
    QWidget* TakeLastGroup();

    /// Says what the page holds beside the heading of the spacings, where there is nothing to remark on.
    void ShowSummary(const QString& words);
    /// Ends what is being entered, as leaving the field does.
    void FinishEdit();

signals:
    /// Something of the form has changed, by whomever it was done.
    void Changed();
    /// The user has ended a change: left a text field or pressed Return in it, chosen an item, clicked a box.
    void Committed(const linealis::Control& control);
    /// The control that has the focus now, or null.
    void FocusMoved(const linealis::Control* control);

protected:
    void changeEvent(QEvent* event) override;

private:
    /// A control on the screen, with its caption.
    struct Shown {
        ControlWidget control;
        QLabel* caption = nullptr;  ///< the caption before it that is no control itself, or null
    };

    /// What stands behind fields: the unit of one, and the lengths in millimeters.
    struct ShownReadout {
        Form::Row fields;
        QLabel* label;
        bool hasUnit;
        bool hasLength;
    };

    void AddGroup(Group group, GroupBoxes groupBoxes);
    void AddHeadings(QGridLayout& grid, const Form::Row& row);
    void AddRow(FormRows& rows, const Form::Row& row);
    void AddTableRow(FormRows& rows, const Form::Row& row);
    QLabel* MakeReadout(const Form::Row& fields, bool hasUnit, bool hasLength);
    /// Gives the captions that rows begin with one width in all groups, and readouts a width that does not change
    /// with their texts.
    void Align();
    QWidget* MakeWidget(Control& control);
    /// The label of a control's caption, its buddy; null if the control has no caption before it.
    QLabel* MakeCaption(Control& control);

    void Refresh(const Control& control);
    void RefreshAll();
    void ShowReadouts();
    QString Known(Group group) const;
    /// Shows the remarks on the fields of a group.
    void ShowRemarks(Group group);
    /// Marks the field of a remark, and says it to who cannot see that. Returns the remark.
    QString ShowRemark(const TextField& field);

    Form& form;
    ControlEvents events;
    QVBoxLayout* column;
    QHBoxLayout* lastRow = nullptr;
    std::map<const Control*, Shown> controls;
    std::map<Group, FormGroup*> groups;
    std::vector<ShownReadout> readouts;
    QString summary;
};

}  // namespace linealis::desktop
