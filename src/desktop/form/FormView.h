#pragma once

#include "desktop/form/ControlWidgets.h"
#include "pipeline/form/FormLayout.h"

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

/// Whether the groups of a form have headings, as in a paper window, or none, as in a dialog.
enum class GroupBoxes { withHeading, none };

/// Shows a form: the widgets of its controls, arranged in groups, and the remarks on its fields. The object name
/// of a widget is the name of its control. Is the observer of the form while it exists.
class FormView final : public QWidget {
    Q_OBJECT

public:
    /// `onSwatch` is called when the user clicks a color swatch. The form must outlive the view.
    FormView(Form& theForm, GroupBoxes groupBoxes, std::function<void(Swatch& swatch)> onSwatch,
             QWidget* parent = nullptr);
    ~FormView() override;
    FormView(const FormView&) = delete;
    FormView& operator=(const FormView&) = delete;

    /// Removes the last group from the layout and returns it, without a parent, for another place in the window.
    /// The view keeps its controls up to date.
    QWidget* TakeLastGroup();

    /// Puts a widget directly after that of a control, on the same line and next in the order of Tab. It is enabled
    /// while the control is. The control must have a widget.
    void AddBeside(const Control& control, QWidget* widget);
    /// Shows a summary of the page next to the heading of the spacings, unless there are remarks to show.
    void ShowSummary(const QString& words);
    /// Finishes the entry in the text field that has the focus, as if the user left it.
    void FinishEdit();
    /// Must be called when the user has changed a control. If it is a margin and the margins are linked, the others
    /// get its value.
    void FollowLink(const Control& control);

signals:
    /// Emitted when a control has changed, by the user or by code.
    void Changed();
    /// Emitted when the user has finished a change: left a text field or pressed Return in it, chosen an item, or
    /// clicked a box.
    void Committed(const linealis::Control& control);
    /// Emitted when the user wants `fill` to fill in fields, as one step of that name.
    void FillWanted(const QString& step, const std::function<void()>& fill);
    /// Emitted with the control that now has the focus, or null.
    void FocusMoved(const linealis::Control* control);

protected:
    void changeEvent(QEvent* event) override;

private:
    /// The widgets of a control.
    struct Shown {
        ControlWidget control;
        QLabel* caption = nullptr;  ///< null if there is no caption, or if it is a Label with its own entry
        QWidget* beside = nullptr;  ///< see AddBeside; null if there is none
    };

    /// The label after one or more fields.
    struct ShownReadout {
        Form::Row fields;
        QLabel* label;
        ReadoutParts parts;
    };

    void AddGroup(const LaidGroup& laid, GroupBoxes groupBoxes);
    /// Adds the headings of a table, taken from the captions of its first row.
    void AddHeadings(QGridLayout& grid, const LaidRow& row);
    void AddRow(FormRows& rows, const LaidRow& row);
    void AddTableRow(FormRows& rows, const LaidRow& row);
    /// Makes a button that fills in a row of a table with the values of the row above.
    QWidget* MakeCopyButton(const LaidRow& row);
    /// Makes a button that keeps all margins equal as long as it is down.
    QWidget* MakeLinkButton();
    QLabel* MakeReadout(const Form::Row& fields, const ReadoutParts& parts);
    /// Gives the captions at the start of rows the same width in all groups, and the readouts of single fields a
    /// width that does not depend on their texts.
    void Align();
    QWidget* MakeWidget(Control& control);
    /// Makes the label before a control and sets the control as its buddy.
    QLabel* MakeCaption(Control& control);
    /// Puts the name of the row before the caption of a control, unless it is empty: "X axis  Title:".
    QWidget* WithRowName(const std::string& name, QLabel* caption);

    /// Updates the widgets of a control. Does nothing if the view does not show it.
    void Refresh(const Control& control);
    /// Updates all widgets and the colors that are derived from the palette.
    void RefreshAll();
    void ShowReadouts();
    /// Returns what a group shows if there are no remarks. May be empty.
    QString Known(Group group) const;
    /// Shows the remarks on the fields of a group.
    void ShowRemarks(Group group);
    /// Marks the field if there is a remark on it, and tells screen readers the remark. Returns the remark.
    QString ShowRemark(const TextField& field);

    Form& form;
    std::vector<LaidGroup> arrangement;
    ControlEvents events;
    QVBoxLayout* column;
    QHBoxLayout* lastRow = nullptr;  ///< contains the last group, for TakeLastGroup
    std::map<const Control*, Shown> controls;
    std::map<Group, FormGroup*> groups;
    std::vector<ShownReadout> readouts;
    std::vector<QLabel*> weakLabels;  ///< readouts and names of rows
    QString summary;
    bool marginsAreLinked = false;
};

}  // namespace linealis::desktop
