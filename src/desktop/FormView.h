#pragma once

#include "desktop/ControlWidgets.h"
#include "pipeline/Form.h"

#include <QWidget>
#include <functional>
#include <map>
#include <vector>

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace linealis::desktop {

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

signals:
    /// Something of the form has changed, by whomever it was done.
    void Changed();
    /// The user has ended a change: left a text field or pressed Return in it, chosen an item, clicked a box.
    void Committed();
    /// The control that has the focus now, or null.
    void FocusMoved(const linealis::Control* control);

protected:
    void changeEvent(QEvent* event) override;

private:
    using Row = std::vector<Control*>;

    /// A control on the screen, with its caption and the remarks on its row.
    struct Shown {
        ControlWidget control;
        QLabel* caption = nullptr;  ///< the caption before it that is no control itself, or null
        QLabel* remark = nullptr;   ///< null: there is nothing to remark on
        Row row;
    };

    std::vector<Row> RowsOf(Group group) const;
    bool IsCaptionOfAField(const Control& control) const;

    void AddGroup(Group group, GroupBoxes groupBoxes);
    void AddHeadings(QGridLayout& grid, const Row& row);
    void AddRow(QGridLayout& grid, const Row& row);
    void AddRemark(QGridLayout& grid, const Row& row);
    QWidget* MakeWidget(Control& control);
    void WatchEdits(QWidget& widget);
    /// The label of a control's caption, its buddy; null if the control has no caption before it.
    QLabel* MakeCaption(Control& control);

    void Refresh(const Control& control);
    void RefreshAll();
    void ShowRemarks(const Shown& shown);

    Form& form;
    std::function<void(Swatch& swatch)> swatchClicked;
    QVBoxLayout* column;
    QHBoxLayout* lastRow = nullptr;
    std::map<const Control*, Shown> controls;
};

}  // namespace linealis::desktop
